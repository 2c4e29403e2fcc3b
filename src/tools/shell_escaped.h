#pragma once

#include <QString>
#include <QStringList>

namespace kestor {

/// A command line for display: arguments joined by blanks, those with shell characters in single quotes. An empty
/// argument shows as nothing. Never executed.
QString shellEscaped(const QStringList &arguments);

} // namespace kestor
