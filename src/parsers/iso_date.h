#pragma once

#include <QDateTime>
#include <QStringView>

#include <optional>

namespace kestor {

/// Reads the two internet date-time forms, with and without fractional seconds (up to nanoseconds), each with "Z" or a
/// numeric offset. Nothing for any other text, a date alone included. The result is in UTC.
std::optional<QDateTime> dateFromISO8601(QStringView text);

} // namespace kestor
