#pragma once

#include "ui/look/badge.h"

#include <QString>

namespace kestor {

/// What a row of revisions says.
struct RevisionRow {
    Badge badge{};      ///< without a letter: no row of the list has a badge
    QString status{};   ///< the badge in a word
    QString message{};  ///< its first line
    QString revision{}; ///< "r1234" or the beginning of a hash
    QString author{};
    QString date{};
};

/// The row as it is read aloud: "Evict tiles by cost, 9c41e07, maintainer, 20 Nov 2025 14:31, Modified".
QString accessibleText(const RevisionRow &row);

} // namespace kestor
