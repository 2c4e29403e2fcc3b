#pragma once

#include <QWidget>

namespace kestor {

class Commands;

/// What the window shows while it has no project: the ways to add one, in a dashed frame.
class FirstRun final : public QWidget {
public:
    FirstRun(const Commands &commands, QWidget *parent);

protected:
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    QWidget *frame;
    QWidget *firstWay = nullptr;
};

} // namespace kestor
