#pragma once

#include <QFile>
#include <QObject>

#include <functional>
#include <optional>

namespace kestor {

/// A turn of the event loop that the user may have felt.
struct Pause {
    double computed = 0; ///< milliseconds of the thread's own processor time
    double waited = 0;   ///< milliseconds in which it waited for something else than a processor
    QString cause{};     ///< the event that took longest, its receiver and what the program was busy with
};

/// Reports every turn of the main thread's event loop that holds it up for too long, from the first event of the turn
/// to its last. Time that the system gave to other programs does not count, so that the same holds on a busy machine.
/// Main thread only.
class PauseWatch final : public QObject {
    Q_OBJECT

public:
    /// Reports turns that compute for more than `longest` milliseconds, or wait for ten times that: the start of a
    /// child waits until the child has had a processor. `busyWith` says what the program is doing.
    PauseWatch(double longest, std::function<QString()> busyWith, std::function<void(const Pause &)> report);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Moment {
        double computed = 0;
        double waited = 0;
    };
    /// An event that is being handled.
    struct Handling {
        Moment began{};
        const char *receiver = nullptr; ///< name of its class
        int type = 0;                   ///< QEvent::Type
    };
    struct Turn {
        Moment began{};
        QString busyWith{};
        Handling current{};
        Handling longest{};
        double longestTime = 0;
    };

    Moment now();
    void endHandling(Moment time);
    void endTurn();

    double bound;
    std::function<QString()> activity;
    std::function<void(const Pause &)> tell;
    QFile schedule{};
    std::optional<Turn> turn{};
};

} // namespace kestor
