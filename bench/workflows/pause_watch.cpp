#include "pause_watch.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>
#include <QMetaEnum>

#include <chrono>
#include <time.h>
#include <utility>

namespace kestor {

using namespace Qt::StringLiterals;

PauseWatch::PauseWatch(double longest, std::function<QString()> busyWith, std::function<void(const Pause &)> report)
    : bound(longest), activity(std::move(busyWith)), tell(std::move(report)) {
    schedule.setFileName(u"/proc/thread-self/schedstat"_s);
    schedule.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    qApp->installEventFilter(this);
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, this, &PauseWatch::endTurn);
}

PauseWatch::Moment PauseWatch::now() {
    timespec used{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &used);
    const double computed = static_cast<double>(used.tv_sec) * 1e3 + static_cast<double>(used.tv_nsec) / 1e6;
    const std::chrono::duration<double, std::milli> passed = std::chrono::steady_clock::now().time_since_epoch();
    schedule.seek(0);
    // Nanoseconds on a processor, nanoseconds ready to run without one.
    const double ready = schedule.read(100).split(' ').value(1).toDouble() / 1e6;
    return {computed, passed.count() - computed - ready};
}

bool PauseWatch::eventFilter(QObject *watched, QEvent *event) {
    const Moment time = now();
    if (turn)
        endHandling(time);
    else
        turn = Turn{.began = time, .busyWith = activity()};
    turn->current = {time, watched->metaObject()->className(), event->type()};
    return QObject::eventFilter(watched, event);
}

void PauseWatch::endHandling(Moment time) {
    const Moment &began = turn->current.began;
    const double taken = time.computed - began.computed + time.waited - began.waited;
    if (taken <= turn->longestTime)
        return;
    turn->longestTime = taken;
    turn->longest = turn->current;
}

void PauseWatch::endTurn() {
    if (!turn)
        return;
    const Moment time = now();
    endHandling(time);
    const Turn ended = *std::exchange(turn, std::nullopt);
    const double computed = time.computed - ended.began.computed;
    const double waited = time.waited - ended.began.waited;
    if (computed <= bound && waited <= 10 * bound)
        return;
    const char *type = QMetaEnum::fromType<QEvent::Type>().valueToKey(ended.longest.type);
    const QString cause = u"%1 of %2 (%3 ms) during \"%4\""_s.arg(
        QString::fromLatin1(type), QString::fromLatin1(ended.longest.receiver),
        QString::number(ended.longestTime, 'f', 1), ended.busyWith.isEmpty() ? activity() : ended.busyWith);
    tell({computed, waited, cause});
}

} // namespace kestor
