#pragma once

#include "pause_watch.h"

#include <QList>

namespace kestor::testing {

/// What a user does in the window of a large project whose `svn` prints prepared files. Needs a QApplication.
struct PauseScenario {
    const char *name;
    /// The turns of the event loop that took longer than `longest` milliseconds.
    QList<Pause> (*pauses)(double longest);
};

QList<PauseScenario> pauseScenarios();

} // namespace kestor::testing
