#pragma once

#include <QByteArrayView>
#include <QString>

namespace kestor {

/// A tool's output as text that is never lost: the whole as UTF-8 when valid, else line by line, each line as UTF-8 or,
/// failing that, as Latin-1. Any thread; linear.
QString toolText(QByteArrayView output);

} // namespace kestor
