#pragma once

#include <QStringView>

#include <array>
#include <cstddef>
#include <optional>
#include <type_traits>

namespace kestor {

/// The enumerator whose text in `texts` (in enum order) equals `text` exactly, or nothing.
template <typename Enum, typename Text, std::size_t Size>
std::optional<Enum> enumFromText(const std::array<Text, Size> &texts, std::type_identity_t<Text> text) {
    for (std::size_t i = 0; i < Size; ++i) {
        if (texts[i] == text)
            return static_cast<Enum>(i);
    }
    return std::nullopt;
}

} // namespace kestor
