#pragma once

#include "model/marked_paths.h"
#include "model/working_copy_items.h"

namespace kestor {

/// Whether a commit can act on the row: it has a tick box.
bool isCommittable(const WorkingCopyItem &item);

/// Whether a row is ticked when it is first seen: committable and neither unversioned, doubtful nor changed in its
/// properties alone.
bool isTickedAtFirst(const WorkingCopyItem &item);

/// What the user decided on the tick boxes, each row in one of these at most. Doubtful are missing rows, which a commit
/// deletes, and what a commit fails with: conflicts, obstructed rows and incomplete ones.
struct TickDecisions {
    MarkedPaths unticked{};
    MarkedPaths ticked{};         ///< while they were not doubtful
    MarkedPaths tickedDoubtful{}; ///< while they were

    /// Notes the decision on a row of the list that all of these mark.
    void decide(qsizetype row, const WorkingCopyItem &item, bool selected);

    friend bool operator==(const TickDecisions &, const TickDecisions &) = default;
};

/// The ticks of `items`: as the user decided, else as isTickedAtFirst says, whatever the row was before. A tick does
/// not outlive that the row becomes doubtful. What lies in an external is not ticked at first: a commit would take it
/// to the external's repository.
MarkedPaths ticksFor(const WorkingCopyItems &items, const TickDecisions &decisions);

/// The decisions on paths that are still rows, and that still count. They mark `items`.
TickDecisions remainingDecisions(const WorkingCopyItems &items, const TickDecisions &decisions);

/// The decisions on all other paths.
TickDecisions decisionsWithout(const MarkedPaths &paths, const TickDecisions &decisions);

} // namespace kestor
