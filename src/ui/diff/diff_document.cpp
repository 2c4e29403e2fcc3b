#include "ui/diff/diff_document.h"

#include "parsers/line_changes.h"
#include "parsers/unified_diff_parser.h"

#include <QThreadPool>

#include <algorithm>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype firstLines = 2000;
constexpr qsizetype firstCharacters = 262'144;
constexpr qsizetype releasedAtOnce = 1'048'576;

void release(const DiffDocument *document) {
    if (document->printed.size() <= releasedAtOnce)
        delete document;
    else
        QThreadPool::globalInstance()->start([document] { delete document; });
}

DiffDocumentPtr shared(std::unique_ptr<DiffDocument> document) {
    return {document.release(), release};
}

qint64 hunksOf(const ParsedDiff &diff) {
    qint64 hunks = 0;
    for (const DiffFile &file : diff.files)
        hunks += file.hunks.size();
    return hunks;
}

/// The later of the two numbers at the end of a hunk. Starts come from the text: sums wrap instead of overflowing.
qint64 largestNumberOf(const DiffHunk &hunk) {
    if (hunk.lineCount == 0)
        return std::max(hunk.oldStart, hunk.newStart);
    const PackedDiffLine &last = hunk.source->lines[static_cast<std::size_t>(hunk.firstLine + hunk.lineCount - 1)];
    return std::max(static_cast<qint64>(static_cast<quint64>(hunk.oldStart) + last.oldOffset),
                    static_cast<qint64>(static_cast<quint64>(hunk.newStart) + last.newOffset));
}

qint64 largestNumberOf(const ParsedDiff &diff) {
    qint64 largest = 0;
    for (const DiffFile &file : diff.files) {
        for (const DiffHunk &hunk : file.hunks)
            largest = std::max(largest, largestNumberOf(hunk));
    }
    return largest;
}

void measure(DiffDocument &document) {
    for (qint64 line = 0; line < document.lineCount; ++line)
        document.widestLine = std::max(document.widestLine, document.longLines.add(document.lineText(line)));
}

void splitPlain(DiffDocument &document) {
    const QString &text = document.plainText;
    document.starts.push_back(0);
    for (qsizetype feed = text.indexOf(u'\n'); feed >= 0; feed = text.indexOf(u'\n', feed + 1))
        document.starts.push_back(feed + 1);
    if (!text.isEmpty() && !text.endsWith(u'\n'))
        document.starts.push_back(text.size() + 1);
    document.lineCount = static_cast<qint64>(document.starts.size()) - 1;
}

void fillFromDiff(DiffDocument &document) {
    const std::vector<PackedDiffLine> &lines = document.diff.files.constFirst().source->lines;
    document.lineCount = static_cast<qint64>(lines.size());
    document.largestNumber = largestNumberOf(document.diff);
    document.changes = lineChanges(document.diff);
    document.marks = changeMarks(lines);
}

std::unique_ptr<DiffDocument> readDiff(QString text) {
    auto document = std::make_unique<DiffDocument>();
    document->printed = std::move(text);
    document->plainText = withLineFeeds(document->printed);
    document->diff = UnifiedDiffParser::parse(document->plainText);
    document->hunkCount = hunksOf(document->diff);
    if (document->hunkCount == 0) {
        document->diff = {};
        splitPlain(*document);
    } else {
        document->plainText.clear();
        fillFromDiff(*document);
    }
    measure(*document);
    return document;
}

} // namespace

QStringView DiffDocument::lineText(qint64 line) const {
    const auto index = static_cast<std::size_t>(line);
    if (isPlain())
        return QStringView(plainText).sliced(starts[index], starts[index + 1] - starts[index] - 1);
    const DiffSource &source = *diff.files.constFirst().source;
    return source.textOf(source.lines[index]);
}

DiffDocumentPtr diffDocument(QString text) {
    return shared(readDiff(std::move(text)));
}

DiffDocumentPtr beginningOfDiff(const QString &text, qsizetype size) {
    std::unique_ptr<DiffDocument> document = readDiff(text.first(size));
    document->part = DocumentPart::first;
    if (size > 0 && !document->hasSeveralFiles())
        document->largestNumber += document->lineCount * (text.size() / size);
    return shared(std::move(document));
}

DiffDocumentPtr outputDocument(const QString &output, const QString &errors, DocumentPart part) {
    auto document = std::make_unique<DiffDocument>();
    document->part = part;
    QString &text = document->plainText;
    text = withLineFeeds(output);
    if (!errors.isEmpty() && !text.isEmpty() && !text.endsWith(u'\n'))
        text += u'\n';
    const qsizetype heading = text.size();
    if (!errors.isEmpty())
        text += u"Standard error\n"_s + withLineFeeds(errors);
    document->printed = text;
    splitPlain(*document);
    if (!errors.isEmpty())
        document->errorHeading = std::ranges::lower_bound(document->starts, heading) - document->starts.begin();
    measure(*document);
    return shared(std::move(document));
}

qsizetype firstPartSize(QStringView text) {
    const QStringView head = text.first(std::min(text.size(), firstCharacters));
    qsizetype end = 0;
    for (qsizetype line = 0; line < firstLines; ++line) {
        const qsizetype feed = head.indexOf(u'\n', end);
        if (feed < 0)
            return head.size() == text.size() || end == 0 ? head.size() : end;
        end = feed + 1;
    }
    return end;
}

} // namespace kestor
