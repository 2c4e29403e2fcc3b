#include "ui/diff/line_looks.h"

#include "analysis/word_marks.h"
#include "ui/diff/change_run.h"
#include "ui/diff/file_heading.h"

#include <QTimerEvent>

#include <algorithm>
#include <chrono>
#include <utility>

namespace kestor {

namespace {

constexpr qsizetype keptLines = 4096;
constexpr qsizetype keptPartners = 16'384;
/// What nobody reads as code is not colored; up to here the time that it takes is bounded.
constexpr qsizetype longestColored = 10'000;
/// For painting and for each turn of the event loop.
constexpr std::chrono::milliseconds timeAtOnce{6};

QStringView textOf(const DiffHunk &hunk, qint64 line) {
    return hunk.line(line - hunk.firstLine).text;
}

std::vector<QStringView> textsOf(const DiffHunk &hunk, const std::vector<qint64> &lines) {
    std::vector<QStringView> texts;
    texts.reserve(lines.size());
    for (const qint64 line : lines)
        texts.push_back(textOf(hunk, line));
    return texts;
}

} // namespace

LineLooks::LineLooks(const DiffRows &viewRows, QObject *parent)
    : QObject(parent), rows(viewRows), document(std::make_shared<const DiffDocument>()), looks(keptLines),
      partnerMarks(keptLines) {
    connect(&library, &SyntaxLibrary::changed, this, [this] {
        forget();
        emit changed();
    });
}

void LineLooks::setDocument(DiffDocumentPtr newDocument) {
    document = std::move(newDocument);
    forget();
    library.checkFiles();
}

void LineLooks::forget() {
    looks.clear();
    partners.clear();
    partnerMarks.clear();
    syntaxes.clear();
    later.stop();
}

void LineLooks::prepare(qint64 first, qint64 end) {
    if (document->isPlain())
        return;
    viewFirst = first;
    viewEnd = end;
    viewIsReady = prepareUntil(QDeadlineTimer(timeAtOnce), first, end);
    later.start(0, this);
}

void LineLooks::timerEvent(QTimerEvent *event) {
    if (event->timerId() != later.timerId())
        return QObject::timerEvent(event);
    const QDeadlineTimer deadline(timeAtOnce);
    const qint64 screen = viewEnd - viewFirst;
    if (!viewIsReady) {
        viewIsReady = prepareUntil(deadline, viewFirst, viewEnd);
        emit changed();
    } else if (prepareUntil(deadline, viewFirst - screen, viewEnd + screen)) {
        later.stop();
    }
}

/// Whether all are known to be ready; at least one more is.
bool LineLooks::prepareUntil(const QDeadlineTimer &deadline, qint64 first, qint64 end) {
    for (qint64 number = std::max<qint64>(first, 0); number < std::min(end, rows.count()); ++number) {
        const DiffRow row = rows.at(number);
        if (row.kind != DiffRowKind::line || looks.contains(row.line))
            continue;
        looks.insert(row.line, new LineLook(lookOf(row)));
        if (deadline.hasExpired())
            return false;
    }
    return true;
}

LineLook LineLooks::lookOf(const DiffRow &row) {
    const DiffHunk &hunk = rows.hunk(row.hunk);
    const DiffLine line = hunk.line(row.line - hunk.firstLine);
    LineLook look;
    if (line.kind == DiffLineKind::note)
        return look;
    const std::shared_ptr<CompiledSyntax> &syntax = syntaxOf(row.file);
    if (syntax && line.text.size() <= longestColored)
        look.spans = syntax->collectedMatches(line.text);
    if (line.kind != DiffLineKind::context)
        look.marks = marksOf(hunk, row.line);
    return look;
}

std::vector<TextRange> LineLooks::marksOf(const DiffHunk &hunk, qint64 line) {
    if (const auto known = std::unique_ptr<std::vector<TextRange>>(partnerMarks.take(line)))
        return std::move(*known);
    const qint64 partner = partnerOf(hunk, line);
    if (partner < 0)
        return {};
    WordMarks marks = wordMarks(textOf(hunk, std::min(line, partner)), textOf(hunk, std::max(line, partner)));
    const bool isRemoved = line < partner;
    partnerMarks.insert(partner, new std::vector<TextRange>(std::move(isRemoved ? marks.added : marks.removed)));
    return std::move(isRemoved ? marks.removed : marks.added);
}

/// The line that stands for this one in the other version, or -1.
qint64 LineLooks::partnerOf(const DiffHunk &hunk, qint64 line) {
    if (!partners.contains(line))
        pairRun(hunk, line);
    return partners.value(line, -1);
}

void LineLooks::pairRun(const DiffHunk &hunk, qint64 line) {
    if (partners.size() > keptPartners)
        partners.clear();
    const std::optional<ChangeRun> run = changeRunAt(hunk, line);
    if (!run)
        return;
    for (const qint64 added : run->added)
        partners.insert(added, -1);
    const std::vector<qsizetype> pairs = pairedLines(textsOf(hunk, run->removed), textsOf(hunk, run->added));
    for (std::size_t i = 0; i < pairs.size(); ++i) {
        const qint64 partner = pairs[i] < 0 ? -1 : run->added[static_cast<std::size_t>(pairs[i])];
        partners.insert(run->removed[i], partner);
        if (partner >= 0)
            partners.insert(partner, run->removed[i]);
    }
}

const std::shared_ptr<CompiledSyntax> &LineLooks::syntaxOf(qint64 file) {
    const auto known = syntaxes.constFind(file);
    if (known != syntaxes.constEnd())
        return *known;
    return *syntaxes.insert(file, library.syntaxOf(fileHeading(document->diff.files[file]).path));
}

} // namespace kestor
