#pragma once

#include <QString>
#include <QStringList>

namespace kestor {

/// The paths in one line of a question, which names the first ones only when they are many.
QString namedPaths(const QStringList &paths);

} // namespace kestor
