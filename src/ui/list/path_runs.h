#pragma once

#include "ui/list/list_filter.h"
#include "ui/look/elided_path.h"

#include <QList>
#include <QString>

#include <cstdint>

namespace kestor {

enum class RunRole : std::uint8_t { folder, name, match };

/// A part of a path that is painted in one font and color.
struct TextRun {
    QString text{};
    RunRole role = RunRole::name;

    friend bool operator==(const TextRun &, const TextRun &) = default;
};

/// The path from left to right: dimmed folder, file name, and within both what the filter found.
QList<TextRun> pathRuns(const ElidedPath &path, const ListFilter &filter);

} // namespace kestor
