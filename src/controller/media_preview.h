#pragma once

#include "model/diff_preview.h"

#include <QByteArray>
#include <QString>
#include <QtGlobal>

#include <optional>

namespace kestor {

/// Versions of more bytes than this are described, not shown.
inline constexpr qint64 largestPreviewedFile = qint64{256} << 20;

/// Whether the file at `path` is an image, a font or a sound; nothing for all others. It goes by the extension alone,
/// as the system's list of types has it. Reads that list on its first call, which takes tens of milliseconds; workers.
std::optional<DiffPreviewKind> mediaPreviewKind(const QString &path);

/// The preview of a media file from the contents of its two versions, where an absent one does not exist. Nothing when
/// both are absent; a notice when one is larger than `largestPreviewedFile`.
std::optional<DiffPreview> mediaPreview(DiffPreviewKind kind, const QString &path,
                                        const std::optional<QByteArray> &oldData,
                                        const std::optional<QByteArray> &newData);

/// The notice for a file of which a version has so many bytes that it is not shown.
DiffPreview tooLargePreview(const QString &path, qint64 bytes);

} // namespace kestor
