#include "controller/tool_text.h"

#include "model/utf8_text.h"

#include <QUtf8StringView>

namespace kestor {

namespace {

QString lineText(QByteArrayView line) {
    return QUtf8StringView(line).isValidUtf8() ? utf8Text(line) : QString::fromLatin1(line);
}

} // namespace

bool isValidUtf8(QByteArrayView output) {
    return QUtf8StringView(output).isValidUtf8();
}

QString toolText(QByteArrayView output) {
    if (isValidUtf8(output))
        return utf8Text(output);
    QString text;
    text.reserve(output.size());
    while (!output.isEmpty()) {
        const qsizetype lineFeed = output.indexOf('\n');
        const qsizetype length = lineFeed < 0 ? output.size() : lineFeed + 1;
        text += lineText(output.first(length));
        output = output.sliced(length);
    }
    return text;
}

} // namespace kestor
