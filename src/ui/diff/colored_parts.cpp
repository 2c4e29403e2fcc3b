#include "ui/diff/colored_parts.h"

#include <algorithm>

namespace kestor {

namespace {

/// The ground at one place of a line, and how far it reaches.
struct GroundPart {
    QColor color{};
    qsizetype end = 0;
};

GroundPart groundAt(qsizetype index, const LineLook &look, const SelectedPart &selection, const Grounds &grounds,
                    qsizetype lineEnd) {
    if (index >= selection.begin && index < selection.end)
        return {grounds.selection, selection.end};
    const qsizetype bound = index < selection.begin ? selection.begin : lineEnd;
    const auto mark = std::ranges::upper_bound(look.marks, index, {}, &TextRange::end);
    if (mark == look.marks.end())
        return {grounds.line, bound};
    if (index < mark->start)
        return {grounds.line, std::min(bound, mark->start)};
    return {grounds.mark, std::min(bound, mark->end())};
}

} // namespace

std::vector<ColoredPart> coloredParts(const LineLook &look, qsizetype begin, qsizetype end,
                                      const SelectedPart &selection, const Grounds &grounds, SyntaxColors &colors) {
    std::vector<ColoredPart> parts;
    const auto endOf = [](const SyntaxSpan &span) {
        return span.start + span.length;
    };
    for (auto span = std::ranges::upper_bound(look.spans, begin, {}, endOf);
         span != look.spans.end() && span->start < end; ++span) {
        const qsizetype spanEnd = std::min(end, endOf(*span));
        for (qsizetype index = std::max(begin, span->start); index < spanEnd;) {
            const GroundPart ground = groundAt(index, look, selection, grounds, spanEnd);
            const qsizetype partEnd = std::min(ground.end, spanEnd);
            parts.push_back({index, partEnd, colors.on(span->colorHex, ground.color)});
            index = partEnd;
        }
    }
    return parts;
}

} // namespace kestor
