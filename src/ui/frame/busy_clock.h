#pragma once

#include "ui/tabs/busy_access.h"

#include <QObject>
#include <QTimer>

#include <chrono>
#include <cstdint>

namespace kestor {

/// How much of a running command shows: nothing, the card, the held parts drawn disabled as well.
enum class BusyPhase : std::uint8_t { idle, unseen, card, dimmed };

/// When the phases begin, from the start of the work.
struct BusyTimes {
    std::chrono::milliseconds card{150};
    std::chrono::milliseconds dimmed{heldAfter};
    std::chrono::milliseconds seconds{3000};
};

/// Times what shows of a running command, so that short work shows nothing.
class BusyClock final : public QObject {
    Q_OBJECT

public:
    explicit BusyClock(BusyTimes times, QObject *parent = nullptr);

    /// Starts the phases; already running ones go on, and the seconds begin again.
    void start();
    void stop();

signals:
    void phaseChanged(BusyPhase phase);
    /// Once a second, from the time that seconds are shown.
    void secondsPassed(int seconds);

private:
    void enter(BusyPhase phase);
    void tick();

    BusyTimes times;
    BusyPhase currentPhase = BusyPhase::idle;
    QTimer cardTimer{};
    QTimer dimTimer{};
    QTimer secondsTimer{};
    std::chrono::steady_clock::time_point started{};
};

} // namespace kestor
