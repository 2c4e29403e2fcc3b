#pragma once

#include "controller/app_state.h"
#include "ui/list/row_delegate.h"
#include "ui/tabs/observers.h"

#include <QTimer>

#include <chrono>
#include <functional>

namespace kestor {

/// Shorter work draws nothing as held.
inline constexpr std::chrono::milliseconds heldAfter{400};

/// Tells how a running command holds the parts of a tab: read-only at once, and held when it takes longer.
class BusyAccess {
public:
    /// Calls `tellAccess` now when a command runs, and at every change. `shownState` must outlive it.
    BusyAccess(AppState &shownState, std::function<void(TickAccess)> tellAccess);

private:
    void follow();

    AppState &state;
    std::function<void(TickAccess)> tell;
    bool wasBusy = false;
    QTimer holding{};
    Observers observers{};
};

} // namespace kestor
