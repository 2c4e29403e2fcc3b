#pragma once

#include <QByteArrayView>
#include <QString>

namespace kestor {

/// The characters of UTF-8, every one: a name that begins with a byte order mark keeps it, which QString::fromUtf8
/// would drop.
QString utf8Text(QByteArrayView utf8);

} // namespace kestor
