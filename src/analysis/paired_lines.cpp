#include "analysis/line_words.h"
#include "analysis/word_marks.h"

#include <QHash>

#include <algorithm>
#include <cstdint>
#include <optional>

namespace kestor {

namespace {

constexpr std::size_t mostWords = 30'000;
/// Of words of a removed line with the same words of added ones.
constexpr std::size_t mostMeetings = 1'000'000;

/// A word of a line and how often it has it.
struct WordCount {
    int word = 0;
    int count = 0;
};

struct Line {
    std::vector<WordCount> words{}; ///< each word once
    int characters = 0;             ///< in words
};

/// The lines of a run as their words, which are numbered.
class RunWords {
public:
    std::vector<Line> linesOf(std::span<const QStringView> texts) {
        std::vector<Line> lines;
        for (const QStringView text : texts)
            lines.push_back(text.size() <= longestComparedLine ? lineOf(text) : Line());
        return lines;
    }

    /// Some words have not been read.
    bool isTooLong() const { return read > mostWords; }
    std::size_t differentWords() const { return lengths.size(); }
    int lengthOf(int word) const { return lengths[static_cast<std::size_t>(word)]; }

private:
    Line lineOf(QStringView text) {
        std::vector<int> words;
        Line line;
        for (const LineToken &token : lineTokens(text)) {
            if (token.kind == LineToken::Kind::word && ++read <= mostWords)
                words.push_back(numberOf(textOf(token, text)));
        }
        std::ranges::sort(words);
        for (const int word : words) {
            if (line.words.empty() || line.words.back().word != word)
                line.words.push_back({word, 0});
            ++line.words.back().count;
            line.characters += lengthOf(word);
        }
        return line;
    }

    int numberOf(QStringView word) {
        const int next = static_cast<int>(lengths.size());
        const int number = numbers.value(word, next);
        if (number == next) {
            numbers.insert(word, next);
            lengths.push_back(static_cast<int>(word.size()));
        }
        return number;
    }

    QHash<QStringView, int> numbers;
    std::vector<int> lengths;
    std::size_t read = 0;
};

/// A number for each removed line with each added one.
class Table {
public:
    Table(std::size_t rowCount, std::size_t columnCount) : columns(columnCount), cells(rowCount * columnCount, 0) {}

    int &at(std::size_t row, std::size_t column) { return cells[row * columns + column]; }
    std::span<int> row(std::size_t row) { return std::span(cells).subspan(row * columns, columns); }

private:
    std::size_t columns;
    std::vector<int> cells;
};

/// Where a word stands: in which line, and how often.
struct Place {
    std::size_t line = 0;
    int count = 0;
};

/// The characters of the words that each two lines have in common; nothing when that is too much to find out.
std::optional<Table> commonCharacters(const RunWords &words, std::span<const Line> removed,
                                      std::span<const Line> added) {
    std::vector<std::vector<Place>> places(words.differentWords());
    for (std::size_t line = 0; line < added.size(); ++line) {
        for (const WordCount &entry : added[line].words)
            places[static_cast<std::size_t>(entry.word)].push_back({line, entry.count});
    }
    Table common(removed.size(), added.size());
    std::size_t meetings = 0;
    for (std::size_t line = 0; line < removed.size(); ++line) {
        const std::span<int> row = common.row(line);
        for (const WordCount &entry : removed[line].words) {
            const std::vector<Place> &met = places[static_cast<std::size_t>(entry.word)];
            meetings += met.size();
            if (meetings > mostMeetings)
                return std::nullopt;
            for (const Place &place : met)
                row[place.line] += std::min(place.count, entry.count) * words.lengthOf(entry.word);
        }
    }
    return common;
}

/// In thousandths; 0 below what makes a pair.
int similarity(int common, const Line &removed, const Line &added) {
    const int longer = std::max(removed.characters, added.characters);
    constexpr int leastThousandths = 400;
    const int thousandths = longer > 0 ? 1000 * common / longer : 0;
    return thousandths >= leastThousandths ? thousandths : 0;
}

/// The pairs of the greatest similarity in all; of equal choices the lines that come first.
std::vector<qsizetype> bestPairs(Table similarities, std::size_t removedCount, std::size_t addedCount) {
    Table best(removedCount + 1, addedCount + 1);
    const auto ifPaired = [&](std::size_t removed, std::size_t added) {
        const int similar = similarities.at(removed, added);
        return similar > 0 ? similar + best.at(removed + 1, added + 1) : -1;
    };
    for (std::size_t removed = removedCount; removed-- > 0;) {
        for (std::size_t added = addedCount; added-- > 0;)
            best.at(removed, added) =
                std::max({best.at(removed + 1, added), best.at(removed, added + 1), ifPaired(removed, added)});
    }
    std::vector<qsizetype> pairs(removedCount, -1);
    for (std::size_t removed = 0, added = 0; removed < removedCount && added < addedCount;) {
        if (best.at(removed, added) == ifPaired(removed, added))
            pairs[removed++] = static_cast<qsizetype>(added++);
        else if (best.at(removed, added) == best.at(removed, added + 1))
            ++added;
        else
            ++removed;
    }
    return pairs;
}

} // namespace

std::vector<qsizetype> pairedLines(std::span<const QStringView> removed, std::span<const QStringView> added) {
    const std::vector<qsizetype> none(removed.size(), -1);
    if (removed.empty() || added.empty() || removed.size() + added.size() > longestComparedRun)
        return none;
    RunWords words;
    const std::vector<Line> removedLines = words.linesOf(removed);
    const std::vector<Line> addedLines = words.linesOf(added);
    std::optional<Table> table = words.isTooLong() ? std::nullopt : commonCharacters(words, removedLines, addedLines);
    if (!table)
        return none;
    for (std::size_t row = 0; row < removed.size(); ++row) {
        for (std::size_t column = 0; column < added.size(); ++column)
            table->at(row, column) = similarity(table->at(row, column), removedLines[row], addedLines[column]);
    }
    return bestPairs(*std::move(table), removed.size(), added.size());
}

} // namespace kestor
