#pragma once

#include "ui/look/badge.h"

#include <QString>

#include <cstdint>

namespace kestor {

enum class Tick : std::uint8_t {
    noColumn, ///< no row of the list has a tick box
    none,     ///< the row has no tick box, others have
    unticked,
    ticked,
};

enum class LabelKind : std::uint8_t { plain, conflict, revision };

/// What a row of paths says.
struct PathRow {
    Tick tick = Tick::noColumn;
    Badge badge{};
    QString status{}; ///< the badge in a word; "" where the label has it
    QString path{};
    QString label{}; ///< at the right edge, for example "Modified, Props M"
    LabelKind labelKind = LabelKind::plain;
};

/// The row as it is read aloud: "src/net/retry_policy.cpp, Modified, ticked".
QString accessibleText(const PathRow &row);

} // namespace kestor
