#include "ui/frame/busy_display.h"

#include "ui/frame/busy_card.h"

namespace kestor {

BusyDisplay::BusyDisplay(AppState &shownState, QWidget *cardArea, QWidget *lineStrip)
    : QObject(cardArea), state(shownState), area(cardArea), strip(lineStrip) {
    connect(&clock, &BusyClock::phaseChanged, this, &BusyDisplay::show);
    connect(&clock, &BusyClock::secondsPassed, this, [this](int seconds) {
        if (card != nullptr)
            card->setSeconds(seconds);
    });
    observers.watch(state.busyMessage, [this] { follow(); });
}

void BusyDisplay::follow() {
    const std::optional<QString> message = state.busyMessage.value();
    if (!message) {
        clock.stop();
        return;
    }
    clock.start();
    if (card != nullptr)
        card->setMessage(*message);
}

void BusyDisplay::show(BusyPhase phase) {
    const bool visible = phase == BusyPhase::card || phase == BusyPhase::dimmed;
    if (visible && card == nullptr)
        makeParts();
    if (card != nullptr) {
        card->setVisible(visible);
        line->setVisible(visible);
    }
    emit phaseChanged(phase);
}

void BusyDisplay::makeParts() {
    card = new BusyCard(area);
    card->setMessage(state.busyMessage.value().value_or(QString()));
    line = new BusyLine(strip);
}

} // namespace kestor
