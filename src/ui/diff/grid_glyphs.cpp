#include "ui/diff/grid_glyphs.h"

#include <QGlyphRun>
#include <QPainter>
#include <QVarLengthArray>

#include <algorithm>

namespace kestor {

GridGlyphs::GridGlyphs(const QFont &wanted, double columnAdvance)
    : font(QRawFont::fromFont(wanted)), advance(columnAdvance) {
    std::array<QChar, last - first + 1> characters;
    for (std::size_t i = 0; i < characters.size(); ++i)
        characters[i] = QChar(static_cast<char16_t>(first + i));
    auto count = static_cast<int>(glyphs.size());
    if (!font.glyphIndexesForChars(characters.data(), static_cast<int>(characters.size()), glyphs.data(), &count) ||
        std::ranges::count(glyphs, 0U) > 0)
        font = QRawFont();
}

bool GridGlyphs::draw(QPainter &painter, QPointF start, QStringView text) const {
    const bool isDrawable = font.isValid() && std::ranges::all_of(text, [](QChar unit) {
                                return unit.unicode() >= first && unit.unicode() <= last;
                            });
    if (!isDrawable)
        return false;
    QVarLengthArray<quint32, 256> shown(text.size());
    QVarLengthArray<QPointF, 256> places(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        shown[i] = glyphs[text[i].unicode() - first];
        places[i] = {static_cast<double>(i) * advance, 0};
    }
    QGlyphRun run;
    run.setRawFont(font);
    run.setRawData(shown.data(), places.data(), static_cast<int>(text.size()));
    painter.drawGlyphRun(start, run);
    return true;
}

} // namespace kestor
