#pragma once

#include <QRect>

class QFont;

namespace kestor {

/// Where the parts of a revision stand in a row of one line.
struct RevisionColumns {
    QRect revision;
    QRect message;
    QRect author;
    QRect date;
};

/// Whether a row of that width has room for columns; narrower ones have two lines.
bool hasRoomForColumns(int width, const QFont &font);
RevisionColumns revisionColumns(const QRect &row, const QFont &font);

} // namespace kestor
