#pragma once

#include "controller/arriving_log.h"
#include "controller/log_loading.h"

#include <QByteArrayView>
#include <QElapsedTimer>
#include <QFutureWatcher>
#include <QString>
#include <QThreadPool>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace kestor {

/// Reads a log while it is printed and shows the history so far: soon after the start, then more and more seldom. Newer
/// entries come first, so that a list of them only grows at its end. Main thread.
class EarlyHistory {
public:
    using Show = std::function<bool(const LoadedHistory &)>; ///< returns whether more is wanted

    /// Without `show` it only reads. `workers` must outlive it; a reading that runs at its end is left to them.
    EarlyHistory(QThreadPool &workers, std::shared_ptr<ArrivingLog> arrivingLog, const QString &relativeURL, Show show);
    Q_DISABLE_COPY_MOVE(EarlyHistory)

    /// What the tool printed next.
    void add(QByteArrayView printed);

private:
    using Read = std::optional<LoadedHistory>;
    void readMore();
    void showWhatWasRead();

    QThreadPool &pool;
    std::shared_ptr<ArrivingLog> log;
    QString folder;
    Show showHistory;
    bool isReading = false;
    bool isUnread = false;  ///< something was printed since the last reading began
    bool isUnshown = false; ///< something that no reading shows
    std::chrono::milliseconds pause{50};
    QElapsedTimer sinceReading{};
    QTimer untilDue{}; ///< while it runs nothing is shown
    QFutureWatcher<Read> watcher{};
};

} // namespace kestor
