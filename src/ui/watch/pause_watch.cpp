#include "ui/watch/pause_watch.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>
#include <QLoggingCategory>
#include <QMetaEnum>

#include <chrono>
#include <time.h>
#include <utility>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(pauses, "kestor.pauses")

QString named(const char *receiver, int type) {
    const char *typeName = QMetaEnum::fromType<QEvent::Type>().valueToKey(type);
    return u"%1 of %2"_s.arg(QString::fromLatin1(typeName), QString::fromLatin1(receiver));
}

/// What a user does, mere movements apart.
bool isInput(QEvent::Type type) {
    switch (type) {
    case QEvent::KeyPress:
    case QEvent::Shortcut:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::ContextMenu:
    case QEvent::Wheel:
    case QEvent::Drop:
        return true;
    default:
        return false;
    }
}

/// What the event loop itself hands out. Other events are mostly sent by what handles one of these.
bool beginsWork(QEvent::Type type) {
    switch (type) {
    case QEvent::MetaCall:
    case QEvent::Timer:
    case QEvent::SockAct:
    case QEvent::UpdateRequest:
    case QEvent::LayoutRequest:
    case QEvent::DeferredDelete:
        return true;
    default:
        return isInput(type);
    }
}

} // namespace

void logPause(const Pause &pause) {
    qCWarning(pauses, "%.1f ms of the main thread (%.1f ms passed): %s", pause.computed, pause.passed,
              qPrintable(pause.cause));
}

PauseWatch::PauseWatch(double longest, std::function<QString()> busyWith, std::function<void(const Pause &)> report)
    : bound(longest), activity(std::move(busyWith)), tell(std::move(report)) {
    schedule.setFileName(u"/proc/thread-self/schedstat"_s);
    schedule.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    qApp->installEventFilter(this);
    // Dispatchers differ in which of the two they tell behind the last event.
    const QAbstractEventDispatcher *dispatcher = QAbstractEventDispatcher::instance();
    connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this, &PauseWatch::endTurn);
    connect(dispatcher, &QAbstractEventDispatcher::awake, this, &PauseWatch::endTurn);
}

PauseWatch::Moment PauseWatch::now() {
    timespec used{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &used);
    const double computed = static_cast<double>(used.tv_sec) * 1e3 + static_cast<double>(used.tv_nsec) / 1e6;
    const std::chrono::duration<double, std::milli> passed = std::chrono::steady_clock::now().time_since_epoch();
    schedule.seek(0);
    // Nanoseconds on a processor, nanoseconds ready to run without one.
    const double ready = schedule.read(100).split(' ').value(1).toDouble() / 1e6;
    return {computed, passed.count(), ready};
}

bool PauseWatch::eventFilter(QObject *watched, QEvent *event) {
    if (!turn || beginsWork(event->type())) {
        const Moment time = now();
        if (turn)
            endHandling(time);
        else
            turn = Turn{.began = time, .busyWith = activity()};
        turn->current = {time, watched->metaObject()->className(), event->type()};
        if (isInput(event->type()))
            lastInput = turn->current;
    }
    return QObject::eventFilter(watched, event);
}

void PauseWatch::endHandling(Moment time) {
    const Moment &began = turn->current.began;
    const double taken = time.passed - began.passed - (time.ready - began.ready);
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
    const double passed = time.passed - ended.began.passed;
    const double waited = passed - computed - (time.ready - ended.began.ready);
    if (computed > bound || waited > 10 * bound)
        tell({computed, passed, cause(ended)});
}

QString PauseWatch::cause(const Turn &ended) const {
    QString text = named(ended.longest.receiver, ended.longest.type) +
                   u" (%1 ms)"_s.arg(QString::number(ended.longestTime, 'f', 1));
    const QString busyWith = ended.busyWith.isEmpty() ? activity() : ended.busyWith;
    if (!busyWith.isEmpty())
        text += u" during \"%1\""_s.arg(busyWith);
    if (lastInput.receiver)
        text += u", last input "_s + named(lastInput.receiver, lastInput.type);
    return text;
}

} // namespace kestor
