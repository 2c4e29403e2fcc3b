#pragma once

#include <QString>

namespace kestor {

/// `path` with "~" for the home folder.
QString homeRelativePath(const QString &path, const QString &home);

} // namespace kestor
