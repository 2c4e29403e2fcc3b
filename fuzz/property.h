#pragma once

#include <QByteArrayView>

#include <cstdio>
#include <cstdlib>

namespace kestor::fuzz {

/// What a target defines: everything that must hold for one input.
void check(QByteArrayView input);

/// Ends the program, which libFuzzer takes for a finding, unless the property holds.
inline void require(bool holds, const char *property) {
    if (holds)
        return;
    std::fprintf(stderr, "Does not hold: %s\n", property);
    std::abort();
}

} // namespace kestor::fuzz
