#include "controller/media_preview.h"

#include "model/size_text.h"

#include <QMimeDatabase>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

struct TypeFamily {
    DiffPreviewKind kind;
    std::array<QLatin1StringView, 2> prefixes; ///< of the names of its types
};

/// In the order that decides for an extension of several types.
constexpr TypeFamily families[] = {
    {DiffPreviewKind::image, {"image/"_L1, "image/"_L1}},
    {DiffPreviewKind::font, {"font/"_L1, "application/x-font-"_L1}},
    {DiffPreviewKind::audio, {"audio/"_L1, "audio/"_L1}},
};

/// Some systems know none of these, or only other formats that share the extension.
constexpr std::array fontExtensions{"ttf"_L1, "otf"_L1, "ttc"_L1, "otc"_L1, "dfont"_L1};

bool belongsTo(const QMimeType &type, const TypeFamily &family) {
    const QStringList names = QStringList(type.name()) + type.allAncestors();
    return std::ranges::any_of(names, [&family](const QString &name) {
        return std::ranges::any_of(family.prefixes,
                                   [&name](QLatin1StringView prefix) { return name.startsWith(prefix); });
    });
}

/// Lower-cased; "" when there is none.
QString extensionOf(const QString &path) {
    const QString name = path.section(u'/', -1);
    return name.contains(u'.') ? name.section(u'.', -1).toLower() : QString();
}

} // namespace

std::optional<DiffPreviewKind> mediaPreviewKind(const QString &path) {
    const QString extension = extensionOf(path);
    if (extension.isEmpty())
        return std::nullopt;
    // The whole name could match something else, "go.mod" say.
    const QList<QMimeType> types = QMimeDatabase().mimeTypesForFileName(u"x."_s + extension);
    for (const TypeFamily &family : families) {
        if (std::ranges::any_of(types, [&family](const QMimeType &type) { return belongsTo(type, family); }))
            return family.kind;
    }
    return std::ranges::find(fontExtensions, extension) == fontExtensions.end() ? std::nullopt
                                                                                : std::optional(DiffPreviewKind::font);
}

std::optional<DiffPreview> mediaPreview(DiffPreviewKind kind, const QString &path,
                                        const std::optional<QByteArray> &oldData,
                                        const std::optional<QByteArray> &newData) {
    if (!oldData && !newData)
        return std::nullopt;
    const qint64 largest = std::max(oldData ? oldData->size() : 0, newData ? newData->size() : 0);
    if (largest > largestPreviewedFile)
        return tooLargePreview(path, largest);
    return DiffPreview{kind, path, QString(), QString(), oldData, newData};
}

DiffPreview tooLargePreview(const QString &path, qint64 bytes) {
    const QString message = u"Too large to be shown (%1)."_s.arg(sizeText(bytes));
    return {DiffPreviewKind::binary, path, QString(), message, std::nullopt, std::nullopt};
}

} // namespace kestor
