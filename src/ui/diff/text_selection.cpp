#include "ui/diff/text_selection.h"

#include "ui/diff/text_columns.h"

namespace kestor {

namespace {

TextPosition endOfText(const DiffDocument &document) {
    if (document.lineCount == 0)
        return {};
    return {document.lineCount - 1, document.lineText(document.lineCount - 1).size()};
}

TextPosition steppedBack(const DiffDocument &document, TextPosition from, CaretStep step) {
    const QStringView text = document.lineText(from.line);
    if (from.index > 0)
        return {from.line, step == CaretStep::word ? previousWord(text, from.index) : previousCaret(text, from.index)};
    if (from.line == 0)
        return from;
    return {from.line - 1, document.lineText(from.line - 1).size()};
}

TextPosition steppedAhead(const DiffDocument &document, TextPosition from, CaretStep step) {
    const QStringView text = document.lineText(from.line);
    if (from.index < text.size())
        return {from.line, step == CaretStep::word ? nextWord(text, from.index) : nextCaret(text, from.index)};
    if (from.line + 1 == document.lineCount)
        return from;
    return {from.line + 1, 0};
}

/// The same column in another line; beyond the first or last line, the edge of the text.
TextPosition steppedOver(const DiffDocument &document, TextPosition from, qint64 lines) {
    const qint64 line = from.line + lines;
    if (line < 0)
        return {};
    if (line >= document.lineCount)
        return endOfText(document);
    const qint64 column = document.longLines.columnOf(document.lineText(from.line), from.index);
    return {line, document.longLines.positionAt(document.lineText(line), column).index};
}

} // namespace

SelectedPart selectedPart(const TextSelection &selection, qint64 line, qsizetype lineLength) {
    const TextPosition begin = selection.begin();
    const TextPosition end = selection.end();
    if (line < begin.line || line > end.line)
        return {};
    return {line == begin.line ? begin.index : 0, line == end.line ? end.index : lineLength, line < end.line};
}

TextSelection wholeText(const DiffDocument &document) {
    return {{}, endOfText(document)};
}

TextSelection wordAt(const DiffDocument &document, TextPosition position) {
    const QStringView text = document.lineText(position.line);
    if (text.isEmpty())
        return {position, position};
    const WordBounds word = wordBounds(text, position.index);
    return {{position.line, word.begin}, {position.line, word.end}};
}

QString selectedText(const DiffDocument &document, const TextSelection &selection) {
    QString text;
    for (qint64 line = selection.begin().line; line <= selection.end().line && line < document.lineCount; ++line) {
        const QStringView whole = document.lineText(line);
        const SelectedPart part = selectedPart(selection, line, whole.size());
        text += whole.sliced(part.begin, part.end - part.begin);
        if (part.goesOn)
            text += u'\n';
    }
    return text;
}

TextPosition stepped(const DiffDocument &document, TextPosition from, CaretStep step, CaretDirection direction,
                     qint64 pageLines) {
    if (document.lineCount == 0)
        return from;
    const bool back = direction == CaretDirection::back;
    switch (step) {
    case CaretStep::character:
    case CaretStep::word:
        return back ? steppedBack(document, from, step) : steppedAhead(document, from, step);
    case CaretStep::line:
        return steppedOver(document, from, back ? -1 : 1);
    case CaretStep::page:
        return steppedOver(document, from, back ? -pageLines : pageLines);
    case CaretStep::lineEdge:
        return {from.line, back ? 0 : document.lineText(from.line).size()};
    case CaretStep::textEdge:
        return back ? TextPosition() : endOfText(document);
    }
    return from;
}

} // namespace kestor
