#include "controller/svn_target.h"

using namespace Qt::StringLiterals;

namespace kestor {

QString svnTarget(const QString &path) {
    QString target = path.startsWith(u'-') ? u"./"_s + path : path;
    if (path.contains(u'@'))
        target += u'@';
    return target;
}

} // namespace kestor
