#pragma once

#include "model/diff.h"
#include "model/status_kind.h"

#include <QString>

namespace kestor {

/// What the head of a file in a diff says.
struct FileHeading {
    QString path{};
    QString oldPath{}; ///< "" unless the file was renamed
    SVNStatusKind kind = SVNStatusKind::modified;

    /// "old → new" for a renamed file, else the path.
    QString title() const;
    friend bool operator==(const FileHeading &, const FileHeading &) = default;
};

/// Read from the lines that the tool printed above the file's first hunk, so that a removed line that looks like a
/// path header does not rename the file. A file without hunks has only its paths.
FileHeading fileHeading(const DiffFile &file);

} // namespace kestor
