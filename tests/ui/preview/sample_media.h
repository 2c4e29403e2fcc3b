#pragma once

#include <QByteArray>
#include <QSize>

namespace kestor::testing {

/// A PNG image in one color.
QByteArray png(QSize size, Qt::GlobalColor color = Qt::red);
QByteArray svg(QSize size);
/// Any font of the system; empty when there is none.
QByteArray anyFont();

} // namespace kestor::testing
