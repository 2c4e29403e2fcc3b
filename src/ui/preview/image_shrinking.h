#pragma once

#include <QImage>
#include <QSize>

namespace kestor {

/// An image of 32 bits for each pixel, with premultiplied alpha or without alpha, in a format of that kind that is
/// quick to paint. Takes the memory of the image twice at most.
QImage paintable(QImage image);

/// A paintable image made smaller or left as it is in either direction: each pixel is the mean of the area it covers.
/// QImage's own functions do such work on the pool of threads that painting uses too, and painting waits for it; these
/// stay in the thread of their caller.
QImage shrunk(const QImage &image, QSize target);

} // namespace kestor
