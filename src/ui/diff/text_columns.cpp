#include "ui/diff/text_columns.h"

#include <QChar>

#include <algorithm>
#include <iterator>
#include <limits>

namespace kestor {

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

/// Code points that take two columns, in ascending order.
constexpr Range wideRanges[] = {
    {0x1100, 0x115F},   {0x231A, 0x231B},   {0x23E9, 0x23EC},   {0x2E80, 0x303E},   {0x3041, 0x33FF},
    {0x3400, 0x4DBF},   {0x4E00, 0xA4CF},   {0xA960, 0xA97F},   {0xAC00, 0xD7A3},   {0xF900, 0xFAFF},
    {0xFE30, 0xFE6F},   {0xFF00, 0xFF60},   {0xFFE0, 0xFFE6},   {0x1F300, 0x1F64F}, {0x1F680, 0x1F6FF},
    {0x1F900, 0x1F9FF}, {0x1FA70, 0x1FAFF}, {0x20000, 0x3FFFD},
};

bool isWide(char32_t code) {
    const auto *range = std::lower_bound(std::begin(wideRanges), std::end(wideRanges), code,
                                         [](const Range &candidate, char32_t value) { return candidate.last < value; });
    return range != std::end(wideRanges) && range->first <= code;
}

bool combines(char32_t code) {
    const QChar::Category category = QChar::category(code);
    return category == QChar::Mark_NonSpacing || category == QChar::Mark_Enclosing || code == 0x200D;
}

/// Characters that hide or reorder the text around them: a reader has to see that they are there.
bool isReordering(char32_t code) {
    return (code >= 0x200B && code <= 0x200F && code != 0x200D) || (code >= 0x2028 && code <= 0x202E) ||
           (code >= 0x2066 && code <= 0x2069) || code == 0xFEFF;
}

char32_t codeAt(QStringView text, qsizetype index) {
    const QChar unit = text[index];
    if (unit.isHighSurrogate() && index + 1 < text.size() && text[index + 1].isLowSurrogate())
        return QChar::surrogateToUcs4(unit, text[index + 1]);
    return unit.unicode();
}

char32_t controlPicture(char32_t code) {
    return code == 0x7F ? 0x2421 : 0x2400 + code;
}

Cell unusualCell(char32_t code) {
    if (code < 0x20 || code == 0x7F)
        return {controlPicture(code), 1, 1, true};
    if (isReordering(code) || QChar::isSurrogate(code) || (code >= 0x80 && code < 0xA0))
        return {QChar::ReplacementCharacter, 1, 1, true};
    const qsizetype length = QChar::requiresSurrogates(code) ? 2 : 1;
    if (combines(code))
        return {code, length, 0, false};
    return {code, length, isWide(code) ? 2 : 1, isWide(code) || code >= 0x2000};
}

enum class WordClass { blank, word, sign };

WordClass wordClass(QChar unit) {
    if (unit.isSpace())
        return WordClass::blank;
    return unit.isLetterOrNumber() || unit == u'_' || unit.isSurrogate() || unit.isMark() ? WordClass::word
                                                                                          : WordClass::sign;
}

bool isPrintableAscii(char16_t unit) {
    return unit >= 0x20 && unit < 0x7F;
}

} // namespace

Cell cellAt(QStringView text, qsizetype index, qint64 column) {
    const char16_t unit = text[index].unicode();
    if (isPrintableAscii(unit))
        return {unit, 1, 1, false};
    if (unit == u'\t')
        return {unit, 1, static_cast<int>(tabColumns - column % tabColumns), true};
    return unusualCell(codeAt(text, index));
}

qint64 columnAfter(QStringView text, qint64 column) {
    return positionAtColumn(text, std::numeric_limits<qint64>::max(), {0, column}).column;
}

ColumnPosition positionAtColumn(QStringView text, qint64 column, ColumnPosition from) {
    while (from.index < text.size()) {
        if (from.column < column && isPrintableAscii(text[from.index].unicode())) {
            ++from.index;
            ++from.column;
            continue;
        }
        const Cell cell = cellAt(text, from.index, from.column);
        if (from.column + cell.columns > column)
            break;
        from.index += cell.length;
        from.column += cell.columns;
    }
    return from;
}

qsizetype nextCaret(QStringView text, qsizetype index) {
    if (index >= text.size())
        return text.size();
    index += cellAt(text, index, 0).length;
    while (index < text.size() && cellAt(text, index, 0).columns == 0)
        index += cellAt(text, index, 0).length;
    return index;
}

qsizetype previousCaret(QStringView text, qsizetype index) {
    index = std::min(index, text.size());
    while (index > 0) {
        --index;
        if (index > 0 && text[index].isLowSurrogate() && text[index - 1].isHighSurrogate())
            --index;
        if (cellAt(text, index, 0).columns > 0)
            break;
    }
    return index;
}

WordBounds wordBounds(QStringView text, qsizetype index) {
    index = std::min(index, text.size() - 1);
    const WordClass kind = wordClass(text[index]);
    WordBounds bounds{index, index + 1};
    while (bounds.begin > 0 && wordClass(text[bounds.begin - 1]) == kind)
        --bounds.begin;
    while (bounds.end < text.size() && wordClass(text[bounds.end]) == kind)
        ++bounds.end;
    return bounds;
}

qsizetype nextWord(QStringView text, qsizetype index) {
    if (index >= text.size())
        return text.size();
    index = wordBounds(text, index).end;
    while (index < text.size() && wordClass(text[index]) == WordClass::blank)
        ++index;
    return index;
}

qsizetype previousWord(QStringView text, qsizetype index) {
    index = std::min(index, text.size());
    while (index > 0 && wordClass(text[index - 1]) == WordClass::blank)
        --index;
    return index == 0 ? 0 : wordBounds(text, index - 1).begin;
}

} // namespace kestor
