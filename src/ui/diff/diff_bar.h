#pragma once

#include "ui/diff/title_painter.h"
#include "ui/look/theme.h"

#include <QString>
#include <QWidget>

#include <cstdint>
#include <optional>

class QMenu;
class QToolButton;

namespace kestor {

class SegmentedSwitch;
class ToneLabel;

/// How a changed file is shown when there are both.
enum class DetailForm : std::uint8_t { preview, text };

/// The bar above a diff: title, a switch between preview and text, "Hunk 1 of 2" with buttons, and a menu. It decides
/// nothing.
class DiffBar final : public QWidget {
    Q_OBJECT

public:
    /// `menu` opens at the bar's last button and stays the caller's.
    DiffBar(QMenu *menu, QWidget *parent);

    void setTitle(const DiffTitle &newTitle);
    /// An empty `text` hides the label and both buttons.
    void setHunks(const QString &text);
    /// Absent: there is no choice, and no switch.
    void setForm(std::optional<DetailForm> form);
    /// Nothing is shown: only the empty strip remains.
    void clear();

signals:
    void previousHunkRequested();
    void nextHunkRequested();
    void formChosen(kestor::DetailForm form);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void applyLook();
    QRect titleArea() const;

    DiffTitle title;
    Theme theme;
    SegmentedSwitch *forms;
    ToneLabel *hunks;
    QToolButton *previous;
    QToolButton *next;
    QToolButton *more;
};

} // namespace kestor
