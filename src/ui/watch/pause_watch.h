#pragma once

#include <QFile>
#include <QObject>
#include <QString>

#include <functional>
#include <optional>

namespace kestor {

/// How much slower than optimised code this build may be, on a slower machine too.
#if defined(NDEBUG)
inline constexpr double buildSlowdown = 1;
#elif defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
inline constexpr double buildSlowdown = 30;
#else
inline constexpr double buildSlowdown = 10;
#endif

/// Milliseconds that the main thread may compute in one turn of its event loop: a picture of the screen must not wait.
inline constexpr double longestTurn = 16;

/// A turn of the event loop that the user may have felt.
struct Pause {
    double computed = 0; ///< milliseconds of the thread's own processor time
    double passed = 0;   ///< milliseconds on the clock
    QString cause{};     ///< the event that took longest, what the program was busy with, what the user did last
};

/// Writes the pause as one line to the logging category "kestor.pauses".
void logPause(const Pause &pause);

/// Reports every turn of the main thread's event loop that holds it up for too long, from the first event of the turn
/// to its last. Time that the system gave to other programs does not count, so that the same holds on a busy machine.
/// Main thread only; one at a time.
class PauseWatch final : public QObject {
    Q_OBJECT

public:
    /// Reports turns that compute for more than `longest` milliseconds, or wait for ten times that: the start of a
    /// child waits until the child has had a processor. `busyWith` says what the program is doing, "" for nothing.
    PauseWatch(double longest, std::function<QString()> busyWith, std::function<void(const Pause &)> report);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Moment {
        double computed = 0;
        double passed = 0;
        double ready = 0; ///< milliseconds in which there was no processor for it
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
    QString cause(const Turn &ended) const;

    double bound;
    std::function<QString()> activity;
    std::function<void(const Pause &)> tell;
    QFile schedule{};
    std::optional<Turn> turn{};
    Handling lastInput{};
};

} // namespace kestor
