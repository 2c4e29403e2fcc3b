#include "parsers/iso_date.h"

#include <algorithm>
#include <array>

namespace kestor {

namespace {

bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

/// Whether `text` has a digit wherever `shape` has a "d" and the shape's own character everywhere else.
bool hasShape(QStringView text, QStringView shape) {
    return std::equal(text.begin(), text.end(), shape.begin(), shape.end(),
                      [](QChar c, QChar wanted) { return wanted == u'd' ? isDigit(c) : c == wanted; });
}

/// The value of a text of digits.
int number(QStringView digits) {
    int value = 0;
    for (const QChar digit : digits)
        value = 10 * value + (digit.unicode() - u'0');
    return value;
}

/// Takes a decimal point and one to nine digits off the front of `rest`, if it begins with a point. The digits below
/// a millisecond are dropped.
std::optional<int> takeMilliseconds(QStringView &rest) {
    constexpr std::array<int, 3> scale{100, 10, 1};
    if (!rest.startsWith(u'.'))
        return 0;
    const QStringView fraction = rest.sliced(1);
    const qsizetype count = std::find_if_not(fraction.begin(), fraction.end(), isDigit) - fraction.begin();
    if (count < 1 || count > 9)
        return std::nullopt;
    rest = fraction.sliced(count);
    const qsizetype kept = std::min<qsizetype>(count, 3);
    return number(fraction.first(kept)) * scale.at(static_cast<std::size_t>(kept - 1));
}

/// Seconds east of Greenwich of "Z" or a numeric offset.
std::optional<int> offsetSeconds(QStringView text) {
    if (text == u"Z")
        return 0;
    if (!hasShape(text, u"+dd:dd") && !hasShape(text, u"-dd:dd"))
        return std::nullopt;
    const int hours = number(text.sliced(1, 2));
    const int minutes = number(text.sliced(4, 2));
    if (hours > 23 || minutes > 59)
        return std::nullopt;
    const int seconds = 3600 * hours + 60 * minutes;
    return text.front() == u'-' ? -seconds : seconds;
}

} // namespace

std::optional<QDateTime> dateFromISO8601(QStringView text) {
    constexpr QStringView shape = u"dddd-dd-ddTdd:dd:dd";
    if (!hasShape(text.left(shape.size()), shape))
        return std::nullopt;
    QStringView rest = text.sliced(shape.size());
    const std::optional<int> milliseconds = takeMilliseconds(rest);
    const std::optional<int> offset = offsetSeconds(rest);
    const QDate date(number(text.first(4)), number(text.sliced(5, 2)), number(text.sliced(8, 2)));
    const QTime time(number(text.sliced(11, 2)), number(text.sliced(14, 2)), number(text.sliced(17, 2)),
                     milliseconds.value_or(0));
    if (!milliseconds || !offset || !date.isValid() || !time.isValid())
        return std::nullopt;
    return QDateTime(date, time, Qt::UTC).addSecs(-*offset);
}

} // namespace kestor
