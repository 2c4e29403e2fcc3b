#pragma once

#include <QString>
#include <QtGlobal>

namespace kestor {

/// A number of bytes as lists and heads show it, in decimal units: "0 bytes", "1 byte", "3.4 KB", "184 KB", "1.2 GB".
QString sizeText(qint64 bytes);

} // namespace kestor
