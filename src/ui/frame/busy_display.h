#pragma once

#include "controller/app_state.h"
#include "ui/frame/busy_clock.h"
#include "ui/tabs/observers.h"

#include <QObject>

namespace kestor {

class BusyCard;
class BusyLine;

/// Shows the busy message of the state: the card over the content and the line below the tabs.
class BusyDisplay final : public QObject {
    Q_OBJECT

public:
    /// The card lies over `area`, the line along the lower edge of `strip`.
    BusyDisplay(AppState &state, QWidget *area, QWidget *strip);

signals:
    void phaseChanged(BusyPhase phase);

private:
    void follow();
    void show(BusyPhase phase);
    void makeParts();

    AppState &state;
    QWidget *area;
    QWidget *strip;
    BusyCard *card = nullptr; ///< made, like the line, when it is first needed
    BusyLine *line = nullptr;
    BusyClock clock{BusyTimes(), this};
    Observers observers{};
};

} // namespace kestor
