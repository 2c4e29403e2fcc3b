#include "controller/tool_text.h"

#include "fuzz/input_text.h"
#include "fuzz/property.h"

#include <QByteArrayList>

namespace kestor::fuzz {

namespace {

/// Well-formed sequences only: no overlong form, no surrogate, nothing beyond U+10FFFF.
bool isPlainUtf8(QByteArrayView bytes) {
    for (qsizetype i = 0; i < bytes.size();) {
        const auto byteAt = [&](qsizetype index) {
            return index < bytes.size() ? static_cast<unsigned char>(bytes[index]) : 0U;
        };
        const unsigned first = byteAt(i);
        const qsizetype length = first < 0x80   ? 1
                                 : first < 0xC2 ? 0
                                 : first < 0xE0 ? 2
                                 : first < 0xF0 ? 3
                                 : first < 0xF5 ? 4
                                                : 0;
        if (length == 0)
            return false;
        for (qsizetype k = 1; k < length; ++k) {
            if ((byteAt(i + k) & 0xC0U) != 0x80U)
                return false;
        }
        const unsigned second = byteAt(i + 1);
        if ((first == 0xE0 && second < 0xA0) || (first == 0xED && second > 0x9F) || (first == 0xF0 && second < 0x90) ||
            (first == 0xF4 && second > 0x8F))
            return false;
        i += length;
    }
    return true;
}

} // namespace

void check(QByteArrayView input) {
    const QString text = toolText(input);
    require(isValidUtf8(input) == isPlainUtf8(input), "valid is what the encoding's rules say");
    if (isPlainUtf8(input)) {
        require(text.toUtf8() == input, "valid text loses nothing");
        return;
    }
    QString wanted;
    const QByteArrayList lines = input.toByteArray().split('\n');
    for (qsizetype i = 0; i < lines.size(); ++i)
        wanted += (i > 0 ? QStringLiteral("\n") : QString()) +
                  (isPlainUtf8(lines[i]) ? exactText(lines[i]) : QString::fromLatin1(lines[i]));
    require(text == wanted, "each line is UTF-8 or Latin-1");
}

} // namespace kestor::fuzz
