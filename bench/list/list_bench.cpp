// 100,000 rows in the column of the Changes tab: what they cost in memory, how soon after their publication the list is
// painted, and how long a keystroke in the filter takes.

#include "../support/measures.h"
#include "ui/list/filter_field.h"
#include "ui/list/filtered_list.h"
#include "ui/list/row_list_view.h"
#include "ui/tabs/changes_column.h"

#include <QApplication>

#include <algorithm>
#include <malloc.h>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;

/// What the program holds of the heap, large blocks included.
double heapMegabytes() {
    const struct mallinfo2 heap = mallinfo2();
    return static_cast<double>(heap.uordblks + heap.hblkhd) / 1e6;
}

/// Every third row modified, the others unversioned, in folders of a hundred files.
WorkingCopyItems sampleItems(const QString &prefix, int rowCount) {
    QList<WorkingCopyItem> items;
    items.reserve(rowCount); // as sorting leaves the rows of a load
    for (int number = 0; number < rowCount; ++number) {
        const QString path = u"%1/module_%2/file_%3.cpp"_s.arg(prefix)
                                 .arg(number / 100, 4, 10, QChar(u'0'))
                                 .arg(number, 6, 10, QChar(u'0'));
        const SVNStatusKind kind = number % 3 == 0 ? SVNStatusKind::modified : SVNStatusKind::unversioned;
        items.append({.path = path, .kind = kind});
    }
    return items;
}

struct Bench {
    ChangeRows rows{};
    ChangesColumn column{rows};

    Bench() {
        column.resize(400, 800);
        column.show();
        paint();
    }
    void paint() {
        QCoreApplication::processEvents();
        column.repaint();
    }
    double publish(const WorkingCopyItems &items, const MarkedPaths &ticks) {
        QElapsedTimer timer;
        timer.start();
        rows.publish(items);
        rows.setTicked(ticks);
        column.updateCounts();
        paint();
        return milliseconds(timer);
    }
    /// Types `text` letter by letter, then takes it back; the longest keystroke.
    double slowestKeystroke(const QString &text) {
        double slowest = 0;
        QElapsedTimer timer;
        for (qsizetype length = 1; length < 2 * text.size(); ++length) {
            timer.start();
            column.filteredList().filter().setText(text.first(std::min(length, 2 * text.size() - length)));
            paint();
            slowest = std::max(slowest, milliseconds(timer));
        }
        column.filteredList().filter().clear();
        return slowest;
    }
};

void run() {
    constexpr int rowCount = 100'000;
    Bench bench;
    const double before = heapMegabytes();
    const WorkingCopyItems items = sampleItems(u"src/library"_s, rowCount);
    const MarkedPaths ticks = MarkedPaths::all(items);
    const double firstPublish = bench.publish(items, ticks);
    report("memory of 100,000 rows, all ticked", heapMegabytes() - before, "MB");
    report("published to painted list", firstPublish, "ms");
    const WorkingCopyItems others = sampleItems(u"src/program"_s, rowCount);
    report("other rows published to painted list", bench.publish(others, MarkedPaths::all(others)), "ms");
    report("filter keystroke, few matches", bench.slowestKeystroke(u"file_0999"_s), "ms");
    report("filter keystroke, no match", bench.slowestKeystroke(u"zzz"_s), "ms");
    report("filter keystroke, two words", bench.slowestKeystroke(u"module CPP"_s), "ms");
}

void runGrowth(int rowCount) {
    const QByteArray size = QByteArray::number(rowCount);
    Bench bench;
    const double before = heapMegabytes();
    const WorkingCopyItems items = sampleItems(u"src/library"_s, rowCount);
    const MarkedPaths ticks = MarkedPaths::all(items);
    const double firstPublish = bench.publish(items, ticks);
    report("growth/memory of rows, all ticked/" + size, heapMegabytes() - before, "MB");
    report("growth/published to painted list/" + size, firstPublish, "ms");
    report("growth/filter keystroke, two words/" + size, bench.slowestKeystroke(u"module CPP"_s), "ms");
}

} // namespace
} // namespace kestor

int main(int argc, char **argv) {
    const QApplication application(argc, argv);
    kestor::run();
    for (const int rowCount : {100'000, 200'000, 400'000})
        kestor::runGrowth(rowCount);
}
