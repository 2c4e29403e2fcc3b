#pragma once

#include "model/diff.h"
#include "ui/look/theme.h"

#include <QFont>
#include <QRect>

#include <cstdint>

class QPainter;

namespace kestor {

enum class HeadEdge : std::uint8_t { below, bothSides };
enum class HeadFold : std::uint8_t { open, folded };

struct HeadLook {
    HeadEdge edge = HeadEdge::below;
    HeadFold fold = HeadFold::open;
};

/// Paints the head of one file of several: badge, path, counts and the sign that it folds.
void paintFileHead(QPainter &painter, const DiffFile &file, const QRect &area, HeadLook look, const QFont &font,
                   const Theme &theme);

} // namespace kestor
