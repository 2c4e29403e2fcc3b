#include "controller/svn_target.h"

using namespace Qt::StringLiterals;

namespace kestor {

QString svnTarget(const QString &path) {
    return path.contains(u'@') ? svnDiffTarget(path) + u'@' : svnDiffTarget(path);
}

QString svnDiffTarget(const QString &path) {
    return path.startsWith(u'-') ? u"./"_s + path : path;
}

} // namespace kestor
