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
    void (*inject)(World &world) = nullptr;
    /// Makes good again what healTools() and World::reset() do not.
    void (*heal)(World &world) = nullptr;
    unsigned breaks = 0;
};

/// Those that strike in every run of a tool, and those around the tools.
const QList<Fault> &allFaults();
/// The tool fails silently in the run with that number, and in no other.
void failInRun(int run);
/// No tool fails any more.
void healTools();

} // namespace kestor::testing
