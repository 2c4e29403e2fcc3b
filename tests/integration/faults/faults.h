#pragma once

#include "world.h"

#include <QList>

namespace kestor::testing {

/// What a fault takes away, and what a family cannot do without.
enum Need : unsigned {
    tool = 1,
    folder = 2,
    writableFolder = 4,
    disk = 8,
    preferencesFile = 16,
    readablePreferences = 32,
    laterRuns = 64 ///< runs of the tool that begin after the first; what needs several may fail
};

struct Fault {
    const char *name = "";
    unsigned breaks = 0;
    void (*inject)(World &world) = nullptr;
    /// Makes good again what can be; nothing for faults that reset() undoes.
    void (*heal)(World &world) = nullptr;
};

/// Those that strike in every run of a tool, and those around the tools.
const QList<Fault> &allFaults();
/// Those that can strike in a single run, chosen with strikeAt.
const QList<Fault> &faultsOfOneRun();
void strikeAt(int run);
/// No fault strikes any more.
void healTools();

} // namespace kestor::testing
