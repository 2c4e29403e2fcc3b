#include "controller/early_history.h"

#include <QtConcurrent>

#include <algorithm>
#include <utility>

namespace kestor {

namespace {

constexpr std::chrono::milliseconds longestPause{2000};
/// Showing takes a fifth of the time at most, however long the log is.
constexpr int pauseToReading = 4;

} // namespace

EarlyHistory::EarlyHistory(QThreadPool &workers, std::shared_ptr<ArrivingLog> arrivingLog, const QString &relativeURL,
                           Show show)
    : pool(workers), log(std::move(arrivingLog)), folder(relativeURL), showHistory(std::move(show)) {
    QObject::connect(&watcher, &QFutureWatcherBase::finished, &watcher, [this] { showWhatWasRead(); });
    untilDue.setSingleShot(true);
    QObject::connect(&untilDue, &QTimer::timeout, &untilDue, [this] { readMore(); });
    untilDue.start(pause);
}

void EarlyHistory::add(QByteArrayView printed) {
    log->add(printed);
    isUnread = true;
    isUnshown = true;
    readMore();
}

void EarlyHistory::readMore() {
    const bool isDue = isUnshown && showHistory && !untilDue.isActive();
    if (isReading || !(isUnread || isDue))
        return;
    isReading = true;
    sinceReading.start();
    isUnread = false;
    isUnshown = !isDue;
    const auto read = [shared = log, relativeURL = folder, isDue]() -> Read {
        const QList<LogEntry> entries = shared->entriesSoFar();
        return isDue && !entries.isEmpty() ? Read(loadedHistory(entries, relativeURL, {})) : std::nullopt;
    };
    watcher.setFuture(QtConcurrent::run(&pool, read));
}

void EarlyHistory::showWhatWasRead() {
    isReading = false;
    if (const Read history = watcher.result()) {
        if (!showHistory(*history))
            showHistory = nullptr;
        pause = std::max(std::min(2 * pause, longestPause),
                         pauseToReading * std::chrono::milliseconds(sinceReading.elapsed()));
        untilDue.start(pause);
    }
    readMore();
}

} // namespace kestor
