#pragma once

#include "model/project.h"
#include "model/repository_info.h"

#include <QString>

namespace kestor {

/// What the header calls the line of development: the relative URL, else the URL, of a working copy; the branch of a
/// Git repository; "" before that is known.
QString branchText(RepositoryKind kind, const RepositoryInfo &info);

/// The widths of the two texts of the header that give way.
struct HeaderWidths {
    int branch = 0;
    int path = 0;

    friend bool operator==(const HeaderWidths &, const HeaderWidths &) = default;
};

/// Shares `available` pixels: the path gives way first, and leaves before it is too short to read; then the branch.
HeaderWidths headerWidths(int available, const HeaderWidths &wanted);

} // namespace kestor
