// A diff of 1,000,000 lines and 64 MB in the pane: how soon its first screen is there, how long the event loop ever
// stands still until all of it is read and after it is replaced, and what it costs in memory.

#include "../parsers/samples.h"
#include "../support/measures.h"
#include "ui/diff/diff_pane.h"

#include <QApplication>
#include <QFile>
#include <QScrollBar>
#include <QThread>
#include <QThreadPool>

#include <algorithm>
#include <array>
#include <limits>
#include <unistd.h>
#include <utility>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;

constexpr int diffLines = 1'000'000;

double residentBytes() {
    QFile file(u"/proc/self/statm"_s);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').at(1).toDouble() * static_cast<double>(sysconf(_SC_PAGESIZE));
}

DiffSubject subjectOf(const QString &path) {
    return {path, WorkingCopyItem{.path = path, .kind = SVNStatusKind::modified}};
}

struct Pause {
    double passed = 0; ///< on the clock, which other programs lengthen
    double own = 0;    ///< spent by the main thread itself
};

/// Processes events as a user's scrolling brings them, a page every few milliseconds, until `ended`; the longest turns.
template <typename Condition>
Pause longestTurns(QScrollBar &bar, Condition ended) {
    Pause longest;
    while (!ended()) {
        QThread::msleep(4);
        QElapsedTimer turn;
        turn.start();
        const double used = ownMilliseconds();
        bar.triggerAction(QAbstractSlider::SliderPageStepAdd);
        QCoreApplication::processEvents();
        longest = {std::max(longest.passed, milliseconds(turn)), std::max(longest.own, ownMilliseconds() - used)};
    }
    return longest;
}

/// Hunks of C++ whose removed and added lines alternate in runs of `linesOfRun`.
QString changedSource(int linesOfRun) {
    const QString removed =
        u"-    static const QString *findItem%1(const QList<Item> &items, int %1, bool strict = true);\n"_s;
    const QString added =
        u"+    static const QString *itemAt%1(const QList<Item> &items, qint64 %1, bool strict = false);\n"_s;
    QString text = u"Index: src/a.cpp\n--- src/a.cpp\n+++ src/a.cpp\n@@ -1,6000 +1,6000 @@ class Sample {\n"_s;
    for (int first = 0; first < 4000; first += linesOfRun / 2) {
        text += u"     /// What item %1 has, or nothing for \"none\"; see itemsOf().\n"_s.arg(first);
        for (const QString &line : {removed, added}) {
            for (int i = 0; i < linesOfRun / 2; ++i)
                text += line.arg(first + i);
        }
        text += u"     for (int n = 0; n < %1 && !text.isEmpty(); ++n) return u\"x%1\"_s; // %1\n"_s.arg(first);
    }
    return text;
}

/// Spans and word marks are made anew for each screen of 60 lines, which no one has seen before.
void measureScreens(const char *name, const QString &text) {
    constexpr int screenHeight = 60 * 20;
    DiffPane pane;
    pane.resize(1000, 40 + screenHeight);
    pane.show();
    pane.showDiff(subjectOf(u"src/a.cpp"_s), text);
    const DiffView &view = pane.diffView();
    while (view.document().part != DocumentPart::whole)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    std::array<double, 21> used{};
    for (double &screen : used) {
        view.verticalScrollBar()->setValue(view.verticalScrollBar()->value() + 2 * screenHeight);
        const double before = ownMilliseconds();
        view.viewport()->repaint();
        screen = ownMilliseconds() - before;
    }
    std::ranges::nth_element(used, used.begin() + used.size() / 2);
    report(name, used[used.size() / 2], "ms");
}

void run() {
    measureScreens("a screen of 60 lines, word marks on most", changedSource(2));
    measureScreens("a screen of 60 lines, in runs of 200 lines", changedSource(200));
    DiffPane pane;
    pane.resize(900, 700);
    pane.show();
    pane.showDiff(subjectOf(u"warm-up"_s), QString::fromUtf8(unifiedDiff(500)));
    QCoreApplication::processEvents();

    const double before = residentBytes();
    qsizetype bytes = 0;
    QString text;
    {
        const QByteArray printed = unifiedDiff(diffLines);
        bytes = printed.size();
        text = QString::fromUtf8(printed);
    }

    QElapsedTimer timer;
    timer.start();
    pane.showDiff(subjectOf(u"long"_s), text);
    pane.repaint();
    report("first screen", milliseconds(timer), "ms");

    const DiffView &view = pane.diffView();
    QScrollBar &bar = *view.verticalScrollBar();
    const Pause pause = longestTurns(bar, [&] { return view.document().part == DocumentPart::whole; });
    report("longest pause until all is read", pause.passed, "ms");
    report("longest pause until all is read, own time", pause.own, "ms");
    report("all read", milliseconds(timer), "ms");
    report("memory, text included, to a byte of diff", (residentBytes() - before) / static_cast<double>(bytes),
           "bytes");

    timer.restart();
    bar.setValue(bar.maximum());
    pane.repaint();
    report("jump to the end and paint", milliseconds(timer), "ms");
    timer.restart();
    pane.stepHunk(CaretDirection::back);
    pane.repaint();
    report("step to the hunk before and paint", milliseconds(timer), "ms");

    const QString start = text.first(65'536);
    text.clear();
    timer.restart();
    pane.showDiff(subjectOf(u"short"_s), u"(no text diff)"_s);
    pane.repaint();
    report("replace the long diff", milliseconds(timer), "ms");

    timer.restart();
    pane.showDiff(subjectOf(u"start"_s), start);
    pane.repaint();
    report("first screen of the first 64 KiB", milliseconds(timer), "ms");
}

/// From the tool's bytes to the document that a view shows.
void runGrowth(int lines) {
    const QByteArray size = QByteArray::number(lines);
    const QByteArray printed = unifiedDiff(lines);
    const double before = residentBytes();
    double best = std::numeric_limits<double>::max();
    DiffDocumentPtr document;
    for (int i = 0; i < 3; ++i) {
        document.reset();
        const double start = ownMilliseconds();
        document = diffDocument(QString::fromUtf8(printed));
        best = std::min(best, ownMilliseconds() - start);
    }
    QThreadPool::globalInstance()->waitForDone(); // where long documents are released
    report("growth/diff made ready/" + size, best, "ms");
    report("growth/memory of a diff, text included/" + size, (residentBytes() - before) / 1e6, "MB");
}

} // namespace
} // namespace kestor

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    kestor::run();
    for (const int lines : {500'000, 1'000'000, 2'000'000})
        kestor::runGrowth(lines);
}
