#pragma once

#include <QByteArray>

namespace kestor {

// Tool output of a stated size, shaped like the real thing.

/// Paths in the order of a directory walk, in folders of twenty files.
QByteArray samplePath(int index);

QByteArray svnStatusXml(int entries);
QByteArray svnRemoteStatusXml(int entries);
/// Ten changed paths to an entry.
QByteArray svnLogXml(int entries);
QByteArray svnInfoXml();

/// A patch of `lines` lines of 64 bytes on average, which `git apply` accepts.
QByteArray unifiedDiff(int lines);
/// A patch of `hunks` hunks of one added line each, all in one file.
QByteArray oneLineHunks(int hunks);

} // namespace kestor
