#include "controller/svn_target.h"

using namespace Qt::StringLiterals;

namespace kestor {

QString svnTarget(const QString &path) {
    return path.contains(u'@') ? svnDiffTarget(path) + u'@' : svnDiffTarget(path);
}

QString svnDiffTarget(const QString &path) {
    return path.startsWith(u'-') ? u"./"_s + path : path;
}

QString svnDiffTarget(const QString &path, const QString &revision) {
    const bool isLocal = revision.compare(u"BASE", Qt::CaseInsensitive) == 0;
    return isLocal ? svnDiffTarget(path) : svnTarget(path);
}

} // namespace kestor
