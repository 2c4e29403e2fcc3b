#include "parsers/decimal_integer.h"

#include <QString>

#include <limits>

namespace kestor {

namespace {

char32_t codeUnit(QChar c) {
    return c.unicode();
}

char32_t codeUnit(char c) {
    return static_cast<unsigned char>(c);
}

/// Accumulates downwards because the most negative value has no positive counterpart.
template <typename View>
std::optional<qint64> negatedDigits(View digits) {
    if (digits.isEmpty())
        return std::nullopt;
    qint64 value = 0;
    for (const auto c : digits) {
        const char32_t digit = codeUnit(c) - U'0';
        if (digit > 9 || qMulOverflow(value, qint64{10}, &value) || qSubOverflow(value, qint64{digit}, &value))
            return std::nullopt;
    }
    return value;
}

template <typename View>
std::optional<qint64> signedDigits(View text) {
    const char32_t first = text.isEmpty() ? U'0' : codeUnit(text.front());
    const bool hasSign = first == U'+' || first == U'-';
    const std::optional<qint64> value = negatedDigits(hasSign ? text.sliced(1) : text);
    if (!value || first == U'-')
        return value;
    if (*value == std::numeric_limits<qint64>::min())
        return std::nullopt;
    return -*value;
}

} // namespace

std::optional<qint64> decimalInteger(QAnyStringView text) {
    return text.visit([](auto view) { return signedDigits(view); });
}

} // namespace kestor
