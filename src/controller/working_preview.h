#pragma once

#include "model/diff_preview.h"
#include "model/status_kind.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <optional>

namespace kestor {

/// Which versions of a changed file a preview shows.
enum class PreviewSides : std::uint8_t { oldOnly, newOnly, both };
PreviewSides previewSides(SVNStatusKind kind);

/// What a preview needs to know of a file of the working copy.
struct WorkingMedia {
    std::optional<DiffPreviewKind> kind{}; ///< absent: no media file, and nothing was read
    qint64 size = 0;                       ///< of the file on disk, in bytes; 0 when it is not read
    std::optional<QByteArray> data{};      ///< absent when there is no such file, or it is too large for a preview
};

/// Finds out about the file at `path` below `root` (absolute) and reads it unless `sides` is `oldOnly`. Only regular
/// files that can be read have data, symbolic links have none. Reads the disk; workers.
WorkingMedia workingMedia(const QString &root, const QString &path, PreviewSides sides);

} // namespace kestor
