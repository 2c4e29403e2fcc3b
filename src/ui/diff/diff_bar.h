#pragma once

#include "ui/diff/title_painter.h"
#include "ui/look/theme.h"

#include <QString>
#include <QWidget>

class QLabel;
class QMenu;
class QToolButton;

namespace kestor {

/// The bar above a diff: title, "Hunk 1 of 2" with buttons, and a menu. It decides nothing.
class DiffBar final : public QWidget {
    Q_OBJECT

public:
    /// `menu` opens at the bar's last button and stays the caller's.
    DiffBar(QMenu *menu, QWidget *parent);

    void setTitle(const DiffTitle &newTitle);
    /// An empty `text` hides the label and both buttons.
    void setHunks(const QString &text);
    /// Nothing is shown: only the empty strip remains.
    void clear();

signals:
    void previousHunkRequested();
    void nextHunkRequested();

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void applyLook();
    QRect titleArea() const;

    DiffTitle title;
    Theme theme;
    QLabel *hunks;
    QToolButton *previous;
    QToolButton *next;
    QToolButton *more;
};

} // namespace kestor
