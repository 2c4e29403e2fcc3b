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

/// The same for `git` in `directory` (absolute, or "" for this process's own), which then prints file names as they are
/// instead of quoting them, takes no lock that it could do without and starts no hook and no file-system monitor unless
/// the user asked for the run, and looks for its repository in that folder alone unless it is a search.
QProcessEnvironment gitChildEnvironment(const QProcessEnvironment &inherited, RunPurpose purpose,
                                        const QString &directory = {});

} // namespace kestor
