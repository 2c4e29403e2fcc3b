#include "ui/look/syntax_colors.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace kestor {

namespace {

constexpr double leastContrast = 4.5;
constexpr double mixStep = 0.08;

struct Counterpart {
    QRgb light = 0;
    QRgb dark = 0;
};

constexpr std::array counterparts = std::to_array<Counterpart>({
    {0xFF6A737D, 0xFF98A1AC},
    {0xFF0A7F42, 0xFF63CB90},
    {0xFFB42D8D, 0xFFE793CD},
    {0xFF953800, 0xFFE6A570},
    {0xFF0550AE, 0xFF82B5F7},
    {0xFF116329, 0xFF73CF8B},
    {0xFF0969DA, 0xFF75B5FF},
    {0xFF0A7A83, 0xFF63C8D0},
    {0xFFCF222E, 0xFFFF918B},
    {0xFF57606A, 0xFFA8B1BC},
});

QColor themed(const QColor &color, ColorScheme scheme) {
    const auto row = std::ranges::find(counterparts, color.rgb(), &Counterpart::light);
    return scheme == ColorScheme::light || row == counterparts.end() ? color : QColor::fromRgb(row->dark);
}

double linear(float channel) {
    return channel <= 0.04045F ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor &color) {
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

} // namespace

double contrast(const QColor &color, const QColor &background) {
    const auto [darker, lighter] = std::minmax({luminance(color), luminance(background)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor readable(const QColor &color, const QColor &background, const QColor &text) {
    for (int step = 0; step * mixStep < 1; ++step) {
        // What is painted has eight bits to a channel.
        const QColor mixedColor = QColor::fromRgb(mixed(color, text, step * mixStep).rgb());
        if (contrast(mixedColor, background) >= leastContrast)
            return mixedColor;
    }
    return text;
}

QColor SyntaxColors::on(const QString &colorHex, const QColor &background) {
    const auto key = std::pair(colorHex, background.rgb());
    if (const auto entry = known.constFind(key); entry != known.constEnd())
        return *entry;
    const QColor color = QColor::fromString(colorHex);
    const QColor shown = color.isValid() ? readable(themed(color, theme.scheme), background, theme.text) : theme.text;
    known.insert(key, shown);
    return shown;
}

QColor SyntaxColors::on(const QColor &color, const QColor &background) {
    const auto key = std::pair(color.rgb(), background.rgb());
    if (const auto entry = knownMixtures.constFind(key); entry != knownMixtures.constEnd())
        return *entry;
    return *knownMixtures.insert(key, readable(color, background, theme.text));
}

} // namespace kestor
