#include "ui/frame/pane_cycle.h"

#include <QWidget>

#include <algorithm>

namespace kestor {

QWidget *nextPane(const QList<QWidget *> &panes, const QWidget *focused, Turn turn) {
    QList<QWidget *> visible;
    std::ranges::copy_if(panes, std::back_inserter(visible), &QWidget::isVisible);
    if (visible.isEmpty())
        return nullptr;
    const auto holdsFocus = [focused](const QWidget *pane) {
        return pane == focused || pane->isAncestorOf(focused);
    };
    const auto current = std::ranges::find_if(visible, holdsFocus);
    if (current == visible.end())
        return visible.first();
    const auto count = visible.size();
    const auto next = (current - visible.begin() + static_cast<int>(turn) + count) % count;
    return visible.at(next);
}

} // namespace kestor
