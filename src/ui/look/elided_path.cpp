#include "ui/look/elided_path.h"

#include <QStringList>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestExtension = 12;

/// The length of ".ext" at the end; 0 for names like ".profile", "Makefile" or "notes.from the last meeting".
qsizetype extensionLength(QStringView name) {
    const qsizetype dot = name.lastIndexOf(u'.');
    const qsizetype length = name.size() - dot;
    return dot > 0 && length <= longestExtension ? length : 0;
}

/// `name` with only about `kept` characters around "…", never less than its extension and never half a character.
QString withoutMiddle(QStringView name, qsizetype kept) {
    qsizetype tail = qMax(kept / 2, extensionLength(name));
    qsizetype head = qMax(kept - tail, qsizetype(0));
    if (head > 0 && name.at(head - 1).isHighSurrogate())
        --head;
    if (tail > 0 && name.at(name.size() - tail).isLowSurrogate())
        --tail;
    return name.first(head).toString() + u'…' + name.last(tail).toString();
}

QString elidedName(const QString &name, double width, const TextWidth &textWidth) {
    if (textWidth(name) <= width)
        return name;
    qsizetype fits = 0;
    qsizetype tooLong = name.size();
    while (fits + 1 < tooLong) {
        const qsizetype middle = (fits + tooLong) / 2;
        if (textWidth(withoutMiddle(name, middle)) <= width)
            fits = middle;
        else
            tooLong = middle;
    }
    return withoutMiddle(name, fits);
}

/// The outer `kept` of the folders, the first half of them rounded up, around "…".
QString folderWithoutMiddle(const QStringList &folders, qsizetype kept) {
    const qsizetype tail = kept / 2;
    QStringList parts = folders.first(kept - tail);
    parts += u"…"_s;
    parts += folders.last(tail);
    return parts.join(u'/') + u'/';
}

} // namespace

qsizetype fileNameStart(QStringView path) {
    return path.size() < 2 ? 0 : path.lastIndexOf(u'/', path.size() - 2) + 1;
}

ElidedPath elidedPath(const QString &path, double width, const TextWidth &textWidth) {
    const qsizetype start = fileNameStart(path);
    ElidedPath shown{path.first(start), path.sliced(start)};
    if (start == 0)
        return {QString(), elidedName(path, width, textWidth)};
    if (textWidth(path) <= width)
        return shown;
    const QStringList folders = path.first(start - 1).split(u'/');
    for (qsizetype kept = folders.size() - 1; kept >= 0; --kept) {
        shown.folder = folderWithoutMiddle(folders, kept);
        if (textWidth(shown.folder + shown.name) <= width)
            return shown;
    }
    shown.name = elidedName(shown.name, width - textWidth(shown.folder), textWidth);
    return shown;
}

} // namespace kestor
