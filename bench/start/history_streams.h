#pragma once

#include <QByteArray>

namespace kestor {

// Histories of `revisions` entries with five changed files each, out of one file for every ten changes, in the words
// that the tools make a repository of.

/// For `git fast-import`, on the branch "main".
QByteArray gitHistory(int revisions);
/// For `svnadmin load`. Its first entry adds all files.
QByteArray svnHistory(int revisions);

} // namespace kestor
