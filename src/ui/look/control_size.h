#pragma once

#include "ui/look/metrics.h"

#include <QBoxLayout>
#include <QFontMetrics>
#include <QLineEdit>
#include <QPushButton>
#include <QWidget>

namespace kestor {

/// What an icon takes before the text of a button.
inline constexpr int buttonIconRoom = 24;

/// Gives a button with an edge room around its text.
inline void giveRoom(QPushButton &button) {
    const int icon = button.icon().isNull() ? 0 : buttonIconRoom;
    const int text = QFontMetrics(button.font()).horizontalAdvance(button.text());
    button.setMinimumSize(icon + text + 2 * paneEdge + 2, leastControlHeight);
}

/// Gives a field with an edge room around its text, together with what it keeps by itself.
inline void giveRoom(QLineEdit &field) {
    constexpr int room = 6;
    field.setTextMargins(room, 0, room, 0);
}

/// Makes the owner of a row of parts `least` high, or as high as the parts need. The margins are to be set before.
inline void setRowHeight(QBoxLayout &row, int least) {
    const QMargins margins = row.contentsMargins();
    row.addStrut(least - margins.top() - margins.bottom());
    row.parentWidget()->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

} // namespace kestor
