#include "controller/early_history.h"

#include <QtConcurrent>

#include <algorithm>
#include <utility>

namespace kestor {

namespace {

constexpr qint64 longestPause = 2000;

} // namespace

EarlyHistory::EarlyHistory(QThreadPool &workers, std::shared_ptr<ArrivingLog> arrivingLog, const QString &relativeURL,
                           Show show)
    : pool(workers), log(std::move(arrivingLog)), folder(relativeURL), showHistory(std::move(show)) {
    QObject::connect(&watcher, &QFutureWatcherBase::finished, &watcher, [this] { showWhatWasRead(); });
    sinceShown.start();
}

void EarlyHistory::add(QByteArrayView printed) {
    log->add(printed);
    if (std::exchange(reading, true))
        return;
    const bool isDue = showHistory && sinceShown.elapsed() >= pause;
    const auto read = [shared = log, relativeURL = folder, isDue]() -> Read {
        const QList<LogEntry> entries = shared->entriesSoFar();
        return isDue && !entries.isEmpty() ? Read(loadedHistory(entries, relativeURL, {})) : std::nullopt;
    };
    watcher.setFuture(QtConcurrent::run(&pool, read));
}

void EarlyHistory::showWhatWasRead() {
    reading = false;
    const Read history = watcher.result();
    if (!history)
        return;
    showHistory(*history);
    sinceShown.restart();
    pause = std::min(2 * pause, longestPause);
}

} // namespace kestor
