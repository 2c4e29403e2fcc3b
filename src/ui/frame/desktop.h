#pragma once

#include "controller/user_interaction.h"

#include <QFuture>
#include <QString>

namespace kestor {

/// Shows the folder in the desktop's file manager, else through its URL opener; false when neither took it. Main
/// thread.
QCoro::Task<bool> showInFileManager(QString directory);

/// Starts the first terminal that is installed, in `directory`. Does not wait for it.
TerminalResult startTerminal(const QString &directory);

} // namespace kestor
