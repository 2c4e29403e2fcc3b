#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>

namespace kestor {

/// The five sample lines of a font.
struct FontSample {
    QString style{}; ///< "Medium", as the font calls itself
    QImage lines{};  ///< black on transparent, with its device pixel ratio; null when the data is no font
};

/// Draws the sample from the font in memory, which is not installed for that. May take long; any thread.
FontSample fontSample(const QByteArray &data, double devicePixelRatio);

} // namespace kestor
