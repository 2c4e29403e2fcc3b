#pragma once

#include "tools/tool.h"

#include <QProcessEnvironment>

namespace kestor {

/// The environment of a child whose output is parsed: `inherited` with untranslated messages and plain dates, and with
/// file names in UTF-8.
QProcessEnvironment childEnvironment(QProcessEnvironment inherited);

/// The same for `svn`, whose subcommands that need an editor then fail at once: one that wants a terminal would wait
/// for keys for ever, where nobody sees it.
QProcessEnvironment svnChildEnvironment(const QProcessEnvironment &inherited);

/// The same for `git`, which then prints file names as they are instead of quoting them, and in a background read takes
/// no lock that it could do without.
QProcessEnvironment gitChildEnvironment(const QProcessEnvironment &inherited, RunPurpose purpose);

} // namespace kestor
