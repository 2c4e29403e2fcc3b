#include "controller/path_targets.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kestor {

QString svnTarget(const QString &path) {
    return path.contains(u'@') ? svnDiffTarget(path) + u'@' : svnDiffTarget(path);
}

QString svnDiffTarget(const QString &path) {
    return path.startsWith(u'-') || path.startsWith(u"^/") ? u"./"_s + path : path;
}

QString svnDiffTarget(const QString &path, const QString &revision) {
    const bool isLocal = revision.compare(u"BASE", Qt::CaseInsensitive) == 0;
    return isLocal ? svnDiffTarget(path) : svnTarget(path);
}

QString svnListedTarget(const QString &path) {
    return u"./"_s + path + u'@';
}

QString gitTarget(const QString &path) {
    const bool isPattern = path.startsWith(u':') || std::any_of(path.begin(), path.end(), [](QChar character) {
                               return u"*?[\\"_s.contains(character);
                           });
    return isPattern ? u":(literal)"_s + path : path;
}

} // namespace kestor
