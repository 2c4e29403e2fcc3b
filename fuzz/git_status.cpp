#include "fuzz/input_text.h"
#include "fuzz/property.h"
#include "fuzz/standard_order.h"
#include "parsers/git_parsers.h"

#include <QStringList>

namespace kestor::fuzz {

namespace {

SVNStatusKind plainKind(QChar x, QChar y) {
    const QString letters = QString(x) + y;
    if (letters == u"!!")
        return SVNStatusKind::ignored;
    if (letters == u"??")
        return SVNStatusKind::unversioned;
    if (letters == u"AA" || letters == u"DD" || letters.contains(u'U'))
        return SVNStatusKind::conflicted;
    if (letters.contains(u'A'))
        return SVNStatusKind::added;
    if (letters.contains(u'D'))
        return SVNStatusKind::deleted;
    return letters.contains(u'R') ? SVNStatusKind::replaced : SVNStatusKind::modified;
}

QList<WorkingCopyItem> plainItems(const QString &text) {
    QList<WorkingCopyItem> items;
    const QStringList lines = text.split(u'\n');
    for (const QString &line : lines) {
        if (line.size() < 3)
            continue;
        const QString path = line.mid(3);
        const qsizetype arrow = path.indexOf(QStringLiteral(" -> "));
        WorkingCopyItem item;
        item.path = GitParsers::unquotePath(arrow < 0 ? path : path.mid(arrow + 4));
        item.kind = plainKind(line[0], line[1]);
        item.treeConflict = item.kind == SVNStatusKind::conflicted;
        items.append(item);
    }
    sortByCollator(items, &WorkingCopyItem::path);
    return items;
}

} // namespace

void check(QByteArrayView input) {
    const QString text = exactText(input);
    require(GitParsers::parseStatus(text) == plainItems(text), "the items are those of the plain rules");
    QString quoted = text;
    quoted.replace(u'\\', QStringLiteral("\\\\")).replace(u'"', QStringLiteral("\\\""));
    require(GitParsers::unquotePath(u'"' + quoted + u'"') == text, "unquoting undoes quoting");
}

} // namespace kestor::fuzz
