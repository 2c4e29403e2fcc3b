#pragma once

#include "model/working_copy_item.h"

#include <QHash>
#include <QList>
#include <QSet>
#include <QString>

#include <cstdint>

namespace kestor {

/// Whether a commit can act on the row: it has a tick box.
bool isCommittable(const WorkingCopyItem &item);

/// Whether a row is ticked when it is first seen: committable and neither unversioned, missing, conflicted nor changed
/// in its properties alone.
bool isTickedAtFirst(const WorkingCopyItem &item);

/// What the user decided on a tick box, and whether the row was one to look at twice then.
enum class TickDecision : std::uint8_t { untick, tick, tickOfDoubtful };

/// The decision on a row. Doubtful are missing rows, which a commit deletes, and conflicts.
TickDecision decisionOn(const WorkingCopyItem &item, bool selected);

/// What the user decided on the tick boxes, by path.
using TickDecisions = QHash<QString, TickDecision>;

/// The ticks of `items`: as the user decided, else as isTickedAtFirst says, whatever the row was before. A tick does
/// not outlive that the row becomes doubtful. What lies in an external is not ticked at first: a commit would take it
/// to the external's repository.
QSet<QString> ticksFor(const QList<WorkingCopyItem> &items, const TickDecisions &decisions);

/// The decisions on paths that are still rows, and that still count.
TickDecisions remainingDecisions(const QList<WorkingCopyItem> &items, const TickDecisions &decisions);

} // namespace kestor
