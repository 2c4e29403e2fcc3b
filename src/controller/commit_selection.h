#pragma once

#include "model/working_copy_item.h"

#include <QList>
#include <QSet>
#include <QString>

namespace kestor {

/// Whether a commit can act on the row: it has a tick box.
bool isCommittable(const WorkingCopyItem &item);

/// Whether a row is ticked when it is first seen: committable and neither unversioned, missing, conflicted nor changed
/// in its properties alone.
bool isTickedAtFirst(const WorkingCopyItem &item);

/// The ticks after a load that replaced the rows `previous`: a row that was there before and would start in the same
/// state keeps its state from `ticked`; the others follow isTickedAtFirst.
QSet<QString> ticksAfterLoad(const QList<WorkingCopyItem> &items, const QList<WorkingCopyItem> &previous,
                             const QSet<QString> &ticked);

} // namespace kestor
