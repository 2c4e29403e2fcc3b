#pragma once

#include <QProperty>

#include <utility>
#include <vector>

namespace kestor {

/// What a widget observes of the state, for as long as the widget lives.
class Observers {
public:
    /// Calls `show` now and whenever `property` publishes another value.
    template <typename Property, typename Show>
    void watch(Property &property, Show show) {
        show();
        notifiers.push_back(property.addNotifier(std::move(show)));
    }

private:
    std::vector<QPropertyNotifier> notifiers{};
};

} // namespace kestor
