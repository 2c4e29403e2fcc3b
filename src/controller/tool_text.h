#pragma once

#include <QByteArrayView>
#include <QString>

namespace kestor {

/// A tool's output as text that is never lost: the whole as UTF-8 when valid, else line by line, each line as UTF-8 or,
/// failing that, as Latin-1. Any thread; linear.
QString toolText(QByteArrayView output);

/// Whether the whole output is valid UTF-8, so that parsers may take its bytes as they are.
bool isValidUtf8(QByteArrayView output);

/// What `Parser` reads from a tool's output, whose bytes may not be valid UTF-8.
template <typename Parser>
auto parsedOutput(QByteArrayView output) {
    return isValidUtf8(output) ? Parser::parse(output) : Parser::parse(QStringView(toolText(output)));
}

} // namespace kestor
