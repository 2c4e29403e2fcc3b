#pragma once

#include <QByteArray>
#include <QSize>

namespace kestor::testing {

/// A PNG image in one color.
QByteArray png(QSize size, Qt::GlobalColor color = Qt::red);
/// The header of a PNG image of that size, and nothing behind it.
QByteArray pngHeader(QSize size);
QByteArray svg(QSize size);
/// Any font of the system; empty when there is none.
QByteArray anyFont();

} // namespace kestor::testing
