#pragma once

#include <QWidget>

namespace kestor {

class Commands;

/// What the window shows while it has no project: the ways to add one, in a dashed frame. Its focus is on the first.
class FirstRun final : public QWidget {
    Q_OBJECT

public:
    FirstRun(const Commands &commands, QWidget *parent);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QWidget *frame;
};

} // namespace kestor
