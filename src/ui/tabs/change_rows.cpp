#include "ui/tabs/change_rows.h"

#include "controller/commit_selection.h"

#include <QCoreApplication>
#include <QLocale>

namespace kestor {

PathRow changeRow(const WorkingCopyItem &item, Tick tick, const Theme &theme) {
    return {.tick = tick,
            .badge = badgeFor(item, theme),
            .path = item.path,
            .label = statusLabel(item),
            .labelKind = isInConflict(item) ? LabelKind::conflict : LabelKind::plain};
}

QString tickedText(const TickCounts &counts, const QLocale &locale) {
    if (counts.tickable == 0)
        return {};
    const QString text =
        QStringLiteral("%1 of %2 ticked").arg(locale.toString(counts.ticked), locale.toString(counts.tickable));
    const int hidden = counts.ticked - counts.shownTicked;
    return hidden == 0 ? text : text + QStringLiteral(", %1 not shown").arg(locale.toString(hidden));
}

QString commitText(int ticked, const QLocale &locale) {
    if (ticked == 0)
        return QStringLiteral("Commit");
    return ticked == 1 ? QStringLiteral("Commit 1 Change")
                       : QStringLiteral("Commit %1 Changes").arg(locale.toString(ticked));
}

void ChangeRows::publish(const WorkingCopyItems &published) {
    if (items == published)
        return;
    replaceRecords([&] {
        items = published;
        lookUpTicks();
    });
}

void ChangeRows::setTicked(const MarkedPaths &paths) {
    ticked = paths;
    lookUpTicks();
    announceNewLook();
}

void ChangeRows::lookUpTicks() {
    ticks.clear();
    ticks.reserve(static_cast<std::size_t>(items.size()));
    const MarkedPaths marked = ticked.in(items);
    for (qsizetype row = 0; row < items.size(); ++row) {
        const Tick whenCommittable = marked.isMarked(row) ? Tick::ticked : Tick::unticked;
        ticks.push_back(isCommittable(items.statusAt(row)) ? whenCommittable : Tick::none);
    }
}

RowContent ChangeRows::content(int record, const Theme &theme) const {
    return changeRow(items[record], ticks[static_cast<std::size_t>(record)], theme);
}

TickCounts ChangeRows::tickCounts() const {
    TickCounts counts;
    for (const Tick tick : ticks) {
        counts.tickable += tick == Tick::none ? 0 : 1;
        counts.ticked += tick == Tick::ticked ? 1 : 0;
    }
    for (int row = 0; row < rowCount(); ++row) {
        const Tick tick = ticks[static_cast<std::size_t>(recordAt(row))];
        counts.shownTickable += tick == Tick::none ? 0 : 1;
        counts.shownTicked += tick == Tick::ticked ? 1 : 0;
    }
    return counts;
}

} // namespace kestor
