#pragma once

#include <QString>

namespace kestor {

/// Why something is not begun at all, as an alert.
struct Refusal {
    QString title{};
    QString message{};

    friend bool operator==(const Refusal &, const Refusal &) = default;
};

} // namespace kestor
