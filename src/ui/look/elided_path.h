#pragma once

#include <QString>
#include <QStringView>

#include <functional>

namespace kestor {

/// A path made to fit, in the two parts that are painted in different colors.
struct ElidedPath {
    QString folder{}; ///< with its "/" at the end; "" for a path without folders
    QString name{};

    friend bool operator==(const ElidedPath &, const ElidedPath &) = default;
};

/// The width of a text in pixels.
using TextWidth = std::function<double(const QString &)>;

/// The position of the file name in a "/"-separated path. A slash at the end belongs to the name.
qsizetype fileNameStart(QStringView path);

/// The path in at most `width` pixels: whole folders leave from the middle ("src/…/embedded/name.inc"), then the name
/// loses its middle and keeps its extension. Where even "…" with the extension is too wide, that comes back.
ElidedPath elidedPath(const QString &path, double width, const TextWidth &textWidth);

} // namespace kestor
