#pragma once

#include <QList>

#include <sys/types.h>

namespace kestor {

/// Lets this process inherit what the programs that it starts leave behind, so that nothing escapes the functions
/// below.
void adoptOrphans();

/// What this process has started and what that has started in turn.
QList<pid_t> startedProcesses();

/// Seconds of processor time that they have used so far.
double processorSeconds(const QList<pid_t> &processes);
/// Whether one of them runs or waits for a processor or a disk.
bool anyIsBusy(const QList<pid_t> &processes);
/// Their proportional share of memory, in MB of a million bytes.
double sharedMegabytes(const QList<pid_t> &processes);

/// Ends everything that this process has started.
void endStartedProcesses();

} // namespace kestor
