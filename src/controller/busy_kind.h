#pragma once

#include <cstdint>

namespace kestor {

/// What may be done to running work, from the most to the least.
enum class BusyKind : std::uint8_t {
    load,          ///< reads what is shown; the same load of a newer state or of another project stands in for it
    interruptible, ///< closing may end it: it reads, or writes only what it is about to create
    command,       ///< has to come to its end
};

} // namespace kestor
