#include "parsers/line_changes.h"

#include "parsers/decimal_integer.h"

#include <QStringTokenizer>

#include <algorithm>

namespace kestor {

namespace {

/// All carriage returns before one line feed.
struct CarriageReturns {
    qsizetype begin = -1; ///< -1 when there are none
    qsizetype end = -1;
};

CarriageReturns nextReturns(QStringView text, qsizetype from) {
    for (qsizetype begin = text.indexOf(u'\r', from); begin >= 0;) {
        qsizetype end = begin + 1;
        while (end < text.size() && text[end] == u'\r')
            ++end;
        if (end < text.size() && text[end] == u'\n')
            return {begin, end};
        begin = text.indexOf(u'\r', end);
    }
    return {};
}

/// Counts line by line, by the rules of UnifiedDiffParser in their order.
class DiffLineCounter {
public:
    void count(QByteArrayView line) {
        if (line.isEmpty())
            return;
        switch (line.front()) {
        case '+':
            summary.additions += inHunk && !line.startsWith("+++ ") ? 1 : 0;
            break;
        case '-':
            summary.deletions += inHunk && !line.startsWith("--- ") ? 1 : 0;
            break;
        case '@':
            inHunk = inHunk || (inFile && line.startsWith("@@ "));
            break;
        case 'I':
        case 'd':
            if (line.startsWith("Index: ") || line.startsWith("diff --git ")) {
                inFile = true;
                inHunk = false;
            }
            break;
        default:
            break;
        }
    }

    LineChangeSummary summary{};

private:
    bool inFile = false;
    bool inHunk = false;
};

/// Adds the number that `text` is; no number, or one that the total cannot hold, adds nothing.
void addCount(qint64 &total, QStringView text) {
    qint64 sum = 0;
    if (!qAddOverflow(total, decimalInteger(text).value_or(0), &sum))
        total = sum;
}

} // namespace

QString withLineFeeds(QString text) {
    CarriageReturns returns = nextReturns(text, 0);
    if (returns.begin < 0)
        return text;
    QChar *const data = text.data();
    QChar *out = data + returns.begin;
    while (returns.begin >= 0) {
        const CarriageReturns next = nextReturns(text, returns.end);
        out = std::copy(data + returns.end, data + (next.begin < 0 ? text.size() : next.begin), out);
        returns = next;
    }
    text.truncate(out - data);
    return text;
}

LineChangeSummary lineChanges(const ParsedDiff &diff) {
    LineChangeSummary summary;
    for (const DiffFile &file : diff.files) {
        summary.additions += file.additions;
        summary.deletions += file.deletions;
    }
    return summary;
}

LineChangeSummary diffLineChanges(QByteArrayView diff) {
    DiffLineCounter counter;
    while (!diff.isEmpty()) {
        const qsizetype lineFeed = diff.indexOf('\n');
        counter.count(lineFeed < 0 ? diff : diff.first(lineFeed));
        diff = diff.sliced(lineFeed < 0 ? diff.size() : lineFeed + 1);
    }
    return counter.summary;
}

LineChangeSummary numstatLineChanges(QStringView text) {
    LineChangeSummary summary;
    for (const QStringView line : qTokenize(text, u'\n', Qt::SkipEmptyParts)) {
        const qsizetype tab = line.indexOf(u'\t');
        if (tab < 0)
            continue;
        const QStringView rest = line.sliced(tab + 1);
        const qsizetype secondTab = rest.indexOf(u'\t');
        addCount(summary.additions, line.first(tab));
        addCount(summary.deletions, secondTab < 0 ? rest : rest.first(secondTab));
    }
    return summary;
}

} // namespace kestor
