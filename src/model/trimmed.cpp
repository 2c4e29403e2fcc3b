#include "model/trimmed.h"

namespace kestor {

namespace {

bool isLineBreak(QChar c) {
    const char16_t u = c.unicode();
    return (u >= 0x0A && u <= 0x0D) || u == 0x85 || u == 0x2028 || u == 0x2029;
}

} // namespace

QStringView withoutOuterLineBreaks(QStringView text) {
    while (!text.isEmpty() && isLineBreak(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && isLineBreak(text.back()))
        text.chop(1);
    return text;
}

QString messageSummary(QStringView message) {
    const QStringView trimmed = message.trimmed();
    return trimmed.isEmpty() ? QStringLiteral("(no message)") : trimmed.toString();
}

} // namespace kestor
