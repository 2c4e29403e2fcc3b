#include "controller/working_preview.h"

#include "controller/media_preview.h"
#include "rules/project_bounds.h"

#include <QFile>
#include <QFileInfo>

namespace kestor {

PreviewSides previewSides(SVNStatusKind kind) {
    switch (kind) {
    case SVNStatusKind::added:
    case SVNStatusKind::unversioned:
        return PreviewSides::newOnly;
    case SVNStatusKind::deleted:
    case SVNStatusKind::missing:
        return PreviewSides::oldOnly;
    default:
        return PreviewSides::both;
    }
}

WorkingMedia workingMedia(const QString &root, const QString &path, PreviewSides sides) {
    WorkingMedia media{.kind = mediaPreviewKind(path)};
    if (!media.kind || sides == PreviewSides::oldOnly)
        return media;
    const QFileInfo info(root + u'/' + path);
    if (!info.isFile() || info.isSymLink() || !readsInside(path, root))
        return media;
    media.size = info.size();
    QFile file(info.filePath());
    if (media.size > largestPreviewedFile || !file.open(QIODevice::ReadOnly))
        return media;
    // It may grow meanwhile.
    const QByteArray content = file.read(largestPreviewedFile);
    if (file.error() == QFileDevice::NoError)
        media.data = content;
    return media;
}

} // namespace kestor
