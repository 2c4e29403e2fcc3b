#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringDecoder>

namespace kestor::fuzz {

/// The characters of UTF-8, every one kept: QString::fromUtf8 drops a mark at the begin.
inline QString exactText(QByteArrayView utf8) {
    using Flag = QStringDecoder::Flag;
    return QStringDecoder(QStringDecoder::Utf8, Flag::Stateless | Flag::ConvertInitialBom).decode(utf8);
}

/// Any sequence of UTF-16 units: as exactText, but the private characters from U+E000 on stand for the halves of pairs,
/// which UTF-8 does not have.
inline QString anyText(QByteArrayView utf8) {
    QString text = exactText(utf8);
    for (QChar &unit : text) {
        if (unit.unicode() >= 0xE000 && unit.unicode() < 0xE800)
            unit = QChar(unit.unicode() - 0xE000 + 0xD800);
    }
    return text;
}

} // namespace kestor::fuzz
