#pragma once

#include "ui/look/theme.h"

#include <QColor>
#include <QHash>
#include <QString>

#include <utility>

namespace kestor {

/// How much two colors differ in brightness, from 1 to 21; text needs 4.5.
double contrast(const QColor &color, const QColor &background);

/// `color`, mixed with `text` in steps of 8 % until it can be read on `background`.
QColor readable(const QColor &color, const QColor &background, const QColor &text);

/// The colors of syntax spans in one theme: dark ones have counterparts of the highlighter's own colors, all others are
/// taken as they are.
class SyntaxColors {
public:
    explicit SyntaxColors(const Theme &shownTheme) : theme(shownTheme) {}

    /// The color of a span, "#RRGGBB", made readable on `background`; that of text for what is no color. Remembered.
    QColor on(const QString &colorHex, const QColor &background);
    /// `color`, made readable on `background`. Remembered.
    QColor on(const QColor &color, const QColor &background);

private:
    Theme theme;
    QHash<std::pair<QString, QRgb>, QColor> known{};
    QHash<std::pair<QRgb, QRgb>, QColor> knownMixtures{};
};

} // namespace kestor
