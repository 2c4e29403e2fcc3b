#pragma once

#include <QAnyStringView>

#include <optional>

namespace kestor {

/// The value of an optional single sign followed by ASCII digits; nothing for any other text, blanks included, and for
/// values outside the signed 64-bit range.
std::optional<qint64> decimalInteger(QAnyStringView text);

} // namespace kestor
