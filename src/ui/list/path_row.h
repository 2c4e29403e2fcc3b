#pragma once

#include "ui/look/badge.h"

#include <QString>

#include <cstdint>

namespace kestor {

enum class Tick : std::uint8_t { none, unticked, ticked }; ///< `none`: the row has no tick box

enum class LabelKind : std::uint8_t { plain, conflict };

/// What a row of paths says.
struct PathRow {
    Tick tick = Tick::none;
    Badge badge{};
    QString path{};
    QString label{}; ///< at the right edge, for example "Modified, Props M"
    LabelKind labelKind = LabelKind::plain;
};

/// The row as it is read aloud: "src/net/retry_policy.cpp, Modified, ticked".
QString accessibleText(const PathRow &row);

} // namespace kestor
