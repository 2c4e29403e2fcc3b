#include "ui/look/home_path.h"

namespace kestor {

QString homeRelativePath(const QString &path, const QString &home) {
    if (path == home)
        return QStringLiteral("~");
    return path.startsWith(home + u'/') ? u'~' + path.mid(home.size()) : path;
}

} // namespace kestor
