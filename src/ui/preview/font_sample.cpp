#include "ui/preview/font_sample.h"

#include <QGlyphRun>
#include <QPainter>
#include <QRawFont>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

struct SampleLine {
    QStringView text;
    int pixelSize;
    int height; ///< of the line, the distance to the next one included
};

constexpr SampleLine sampleLines[] = {
    {u"Hamburgefonstiv", 28, 42},
    {u"ABCDEFGHIJKLMNOPQRSTUVWXYZ", 14, 28},
    {u"abcdefghijklmnopqrstuvwxyz", 14, 28},
    {u"0123456789 .,:;!? @#%&()[]{}", 14, 28},
    {u"Sphinx of black quartz, judge my vow.", 13, 28},
};

/// A font may say that its letters are miles wide.
constexpr double widestLine = 2000;

/// A line at a position of its own; in pixels of the target.
struct LaidLine {
    QGlyphRun glyphs{};
    double width = 0;
};

LaidLine laidOut(const QRawFont &font, QStringView text) {
    LaidLine line;
    const QList<quint32> indexes = font.glyphIndexesForString(text.toString());
    const QList<QPointF> advances =
        font.advancesForGlyphIndexes(indexes, QRawFont::SeparateAdvances | QRawFont::KernedAdvances);
    QList<QPointF> positions;
    for (const QPointF &advance : advances) {
        positions.append({line.width, 0});
        line.width = std::clamp(line.width + advance.x(), 0.0, widestLine);
    }
    line.glyphs.setRawFont(font);
    line.glyphs.setGlyphIndexes(indexes);
    line.glyphs.setPositions(positions);
    return line;
}

} // namespace

FontSample fontSample(const QByteArray &data, double devicePixelRatio) {
    QRawFont font;
    font.loadFromData(data, sampleLines[0].pixelSize, QFont::PreferDefaultHinting);
    if (!font.isValid())
        return {};
    FontSample sample{.style = font.styleName()};
    QList<LaidLine> lines;
    double width = 1;
    double height = 0;
    for (const SampleLine &line : sampleLines) {
        font.setPixelSize(line.pixelSize * devicePixelRatio);
        lines.append(laidOut(font, line.text));
        width = std::max(width, lines.last().width + line.pixelSize * devicePixelRatio / 4);
        height += line.height * devicePixelRatio;
    }
    sample.lines = QImage(QSizeF(width, height).toSize(), QImage::Format_ARGB32_Premultiplied);
    sample.lines.fill(Qt::transparent);
    QPainter painter(&sample.lines);
    double bottom = 0;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        bottom += sampleLines[i].height * devicePixelRatio;
        const double baseline = bottom - sampleLines[i].pixelSize * devicePixelRatio * 0.65;
        painter.drawGlyphRun(QPointF(0, std::round(baseline)), lines[i].glyphs);
    }
    painter.end();
    sample.lines.setDevicePixelRatio(devicePixelRatio);
    return sample;
}

} // namespace kestor
