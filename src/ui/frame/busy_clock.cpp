#include "ui/frame/busy_clock.h"

namespace kestor {

using namespace std::chrono_literals;

BusyClock::BusyClock(BusyTimes phaseTimes, QObject *parent) : QObject(parent), times(phaseTimes) {
    for (QTimer *timer : {&cardTimer, &dimTimer, &secondsTimer}) {
        timer->setSingleShot(true);
        timer->setTimerType(Qt::PreciseTimer);
    }
    connect(&cardTimer, &QTimer::timeout, this, [this] { enter(BusyPhase::card); });
    connect(&dimTimer, &QTimer::timeout, this, [this] { enter(BusyPhase::dimmed); });
    connect(&secondsTimer, &QTimer::timeout, this, &BusyClock::tick);
}

void BusyClock::start() {
    started = std::chrono::steady_clock::now();
    secondsTimer.start(times.seconds);
    if (currentPhase != BusyPhase::idle)
        return;
    cardTimer.start(times.card);
    dimTimer.start(times.dimmed);
    enter(BusyPhase::unseen);
}

void BusyClock::stop() {
    for (QTimer *timer : {&cardTimer, &dimTimer, &secondsTimer})
        timer->stop();
    enter(BusyPhase::idle);
}

void BusyClock::enter(BusyPhase phase) {
    if (currentPhase == phase)
        return;
    currentPhase = phase;
    emit phaseChanged(phase);
}

void BusyClock::tick() {
    const auto passed = std::chrono::steady_clock::now() - started;
    secondsTimer.start(1s);
    emit secondsPassed(static_cast<int>(std::chrono::round<std::chrono::seconds>(passed).count()));
}

} // namespace kestor
