#pragma once

#include "ui/look/metrics.h"

#include <QFontMetrics>
#include <QPushButton>

namespace kestor {

/// The height of buttons and fields.
inline constexpr int controlHeight = 28;
/// What an icon takes before the text of a button.
inline constexpr int buttonIconRoom = 24;

/// Gives a button with an edge room around its text.
inline void giveRoom(QPushButton &button) {
    const int icon = button.icon().isNull() ? 0 : buttonIconRoom;
    const int text = QFontMetrics(button.font()).horizontalAdvance(button.text());
    button.setMinimumSize(icon + text + 2 * paneEdge + 2, controlHeight);
}

} // namespace kestor
