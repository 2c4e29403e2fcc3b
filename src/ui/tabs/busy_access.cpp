#include "ui/tabs/busy_access.h"

#include <utility>

namespace kestor {

BusyAccess::BusyAccess(AppState &shownState, std::function<void(TickAccess)> tellAccess)
    : state(shownState), tell(std::move(tellAccess)) {
    holding.setSingleShot(true);
    holding.setInterval(heldAfter);
    holding.callOnTimeout([this] { tell(TickAccess::held); });
    observers.watch(state.busyMessage, [this] { follow(); });
}

void BusyAccess::follow() {
    const bool busy = state.busyMessage.value().has_value();
    if (busy == wasBusy)
        return;
    wasBusy = busy;
    if (busy)
        holding.start();
    else
        holding.stop();
    tell(busy ? TickAccess::readOnly : TickAccess::editable);
}

} // namespace kestor
