#include "model/utf8_text.h"

namespace kestor {

QString utf8Text(QByteArrayView utf8) {
    constexpr QByteArrayView byteOrderMark("\xEF\xBB\xBF");
    qsizetype marks = 0;
    for (; utf8.startsWith(byteOrderMark); ++marks)
        utf8 = utf8.sliced(byteOrderMark.size());
    const QString text = QString::fromUtf8(utf8);
    return marks == 0 ? text : QString(marks, QChar::ByteOrderMark) + text;
}

} // namespace kestor
