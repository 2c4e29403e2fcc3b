#pragma once

#include "ui/diff/ruler_marks.h"
#include "ui/look/theme.h"

#include <QWidget>

#include <vector>

namespace kestor {

/// The strip beside a diff's scroll bar: every change of the document, and the part in view. A click jumps there.
class DiffRuler final : public QWidget {
    Q_OBJECT

public:
    static constexpr int stripWidth = 12;

    explicit DiffRuler(QWidget *parent);

    void setMarks(std::vector<RulerMark> newMarks, double newScale);
    /// The part in view, in pixels of the content.
    void setView(qint64 top, int height);
    void setTheme(const Theme &newTheme);

signals:
    /// The content pixel under the pointer, to be shown in the middle of the view.
    void jumpRequested(qint64 contentY);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;

private:
    void paintMark(QPainter &painter, const RulerMark &mark) const;
    void jump(const QMouseEvent &event);

    Theme theme;
    std::vector<RulerMark> marks;
    double scale = 1;
    qint64 viewTop = 0;
    int viewHeight = 0;
};

} // namespace kestor
