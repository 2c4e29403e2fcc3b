#pragma once

#include <QList>
#include <QWidget>

namespace kestor {

class AccentButton;
class Commands;

/// What the window shows while it has no project: the ways to add one, in a dashed frame. Its focus is on the first.
class FirstRun final : public QWidget {
    Q_OBJECT

public:
    FirstRun(const Commands &commands, QWidget *parent);

    /// Draws the ways as disabled while a command runs; the focus stays.
    void setHeld(bool held);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QWidget *frame;
    QList<AccentButton *> ways{};
};

} // namespace kestor
