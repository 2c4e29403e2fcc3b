#include "fuzz/property.h"

#include <cstdint>

/// What libFuzzer calls with each input.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    kestor::fuzz::check(QByteArrayView(data, static_cast<qsizetype>(size)));
    return 0;
}
