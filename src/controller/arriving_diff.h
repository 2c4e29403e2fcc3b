#pragma once

#include "controller/working_diff.h"
#include "tools/command_result.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QByteArrayView>
#include <QMutex>
#include <QString>

#include <cstdint>
#include <optional>
#include <utility>

namespace kestor {

/// A diff that is decoded while its tool prints it, so that little is left to do when the tool ends. One thread adds
/// what was printed, workers decode it.
class ArrivingDiff {
public:
    enum class Next : std::uint8_t {
        wait,   ///< too little was added to be worth a worker, or one is at it
        decode, ///< decodeAdded() is to be called once
    };

    /// Of the file at `changedPath`.
    explicit ArrivingDiff(QString changedPath) : path(std::move(changedPath)) {}

    /// What was printed next.
    Next add(QByteArrayView printed);
    /// Decodes the whole lines of what was added, until there is no more. Workers.
    void decodeAdded();
    /// The diff as published, of which `result` has all that was printed: "(no text diff)" when that is blank lines at
    /// most. To be called once; workers.
    LoadedDiff diff(const SVNCommandResult &result);

private:
    /// Nothing when all has been taken: the next who adds enough is told to decode.
    std::optional<QByteArray> takeAdded();
    /// A worker that comes too late has nothing to do.
    void dropAdded();
    // Both hold `decoding`.
    void decodeLinesOf(const QByteArray &piece);
    void decode(QByteArrayView lines);

    QString path;
    QMutex adding{};
    QByteArrayList added{}; ///< since it was taken last; one text would be copied whenever it grows
    qsizetype addedSize = 0;
    bool isTaken = false;
    QMutex decoding{};
    QByteArray unread{};   ///< the beginning of a line
    qsizetype decoded = 0; ///< how many bytes are in `text`
    QString text{};
    std::optional<DiffPreview> notice{}; ///< where the tool says that the file is binary
};

} // namespace kestor
