#pragma once

#include <QList>

class QWidget;

namespace kestor {

enum class Turn : int { back = -1, forward = 1 };

/// The pane after, or before, the one that holds `focused`, leaving out those that cannot be seen; around the ends. The
/// first visible one when none holds it, nullptr when none is visible.
QWidget *nextPane(const QList<QWidget *> &panes, const QWidget *focused, Turn turn);

} // namespace kestor
