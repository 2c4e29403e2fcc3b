#pragma once

#include "ui/watch/pause_watch.h"

#include <QList>

namespace kestor::testing {

// What a user does in the window of a large project whose `svn` prints prepared files: the turns of the event loop that
// took longer than `longest` milliseconds. They need a QApplication.

/// 100,000 changed rows: loaded, walked through, filtered, ticked, refreshed.
QList<Pause> manyChangedRows(double longest);
/// A diff of 1,000,000 lines: loaded, scrolled to its end, selected, replaced.
QList<Pause> longDiff(double longest);
/// A log of 20,000 revisions in the History and Archives tabs: loaded, walked through, filtered, refreshed.
QList<Pause> longHistory(double longest);
/// A folder of 50,000 unversioned files: loaded, walked through, filtered, refreshed.
QList<Pause> manyUnversionedFiles(double longest);

} // namespace kestor::testing
