#pragma once

#include <QByteArray>

namespace kestor {

// Logs of a stated size, shaped like the real thing: `revisions` entries, newest first, of `paths` changed files each,
// out of a tree of one file for every ten changes.

QByteArray svnLog(int revisions, int paths);
QByteArray gitLog(int revisions, int paths);

} // namespace kestor
