#include "controller/arriving_diff.h"

#include "controller/tool_text.h"
#include "model/trimmed.h"

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

/// A short diff is decoded in one when the tool has ended.
constexpr qsizetype worthAWorker = 256 * 1024;

} // namespace

ArrivingDiff::Next ArrivingDiff::add(QByteArrayView printed) {
    const QMutexLocker lock(&adding);
    added.append(printed.toByteArray());
    addedSize += printed.size();
    if (isTaken || addedSize < worthAWorker)
        return Next::wait;
    isTaken = true;
    return Next::decode;
}

void ArrivingDiff::decodeAdded() {
    const QMutexLocker lock(&decoding);
    while (const std::optional<QByteArray> piece = takeAdded())
        decodeLinesOf(*piece);
}

std::optional<QByteArray> ArrivingDiff::takeAdded() {
    QMutexLocker lock(&adding);
    isTaken = !added.isEmpty();
    addedSize = 0;
    const QByteArrayList pieces = std::exchange(added, {});
    lock.unlock();
    return pieces.isEmpty() ? std::nullopt : std::optional(pieces.join());
}

void ArrivingDiff::dropAdded() {
    const QMutexLocker lock(&adding);
    added.clear();
}

void ArrivingDiff::decodeLinesOf(const QByteArray &piece) {
    const qsizetype end = piece.lastIndexOf('\n') + 1;
    unread.append(QByteArrayView(piece).first(end));
    if (end > 0)
        decode(std::exchange(unread, {}));
    unread.append(QByteArrayView(piece).sliced(end));
}

void ArrivingDiff::decode(QByteArrayView lines) {
    const QString piece = toolText(lines);
    if (!notice)
        notice = binaryPreviewIfNeeded(path, piece);
    text += piece;
    decoded += lines.size();
}

LoadedDiff ArrivingDiff::diff(const SVNCommandResult &result) {
    const QMutexLocker lock(&decoding);
    dropAdded();
    if (result.stdoutData.size() < decoded) { // the run broke off and has no result
        text.clear();
        notice.reset();
        decoded = 0;
    }
    decode(QByteArrayView(result.stdoutData).sliced(decoded));
    if (!notice)
        notice = binaryPreviewIfNeeded(path, toolText(result.stderrData));
    text.squeeze(); // growing leaves up to half of a long text unused
    const bool blank = withoutOuterLineBreaks(text).isEmpty();
    return {blank ? u"(no text diff)"_s : std::exchange(text, {}), notice.value_or(DiffPreview())};
}

} // namespace kestor
