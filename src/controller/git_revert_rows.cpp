#include "controller/git_revert_rows.h"

#include "controller/path_command.h"
#include "parsers/git_parsers.h"
#include "rules/working_copy_paths.h"
#include "tools/arguments.h"

#include <QFileInfo>

#include <utility>

using namespace Qt::StringLiterals;

namespace kestor {

GitRevertRows gitRevertRows(QList<WorkingCopyItem> items, const GitRowFacts &facts, const QString &root) {
    GitRevertRows rows;
    rows.facts = withVacantOldNames(facts, root);
    rows.leftOut =
        items.removeIf([&facts, &root](const WorkingCopyItem &item) { return hasLostName(item.path, facts, root); });
    for (const WorkingCopyItem &item : std::as_const(items)) {
        const QFileInfo info(absolutePath(item.path, root));
        if (item.kind != SVNStatusKind::unversioned && isFolder(info))
            rows.folders.insert(item.path);
    }
    rows.items = std::move(items);
    return rows;
}

QStringList committedEntriesArguments(const QSet<QString> &paths) {
    PathCommand command{args(u"ls-tree", u"-z", u"HEAD"), paths.values()};
    if (needsPathFile(command))
        command = {args(u"ls-tree", u"-r", u"-z", u"HEAD")};
    return plainArguments(RepositoryKind::git, command);
}

QSet<QString> submodulesAmong(const QByteArray &printed) {
    QSet<QString> submodules;
    for (const QString &entry : GitParsers::namesEndedByNul(printed)) {
        if (entry.startsWith(u"160000 "))
            submodules.insert(entry.sliced(entry.indexOf(u'\t') + 1));
    }
    return submodules;
}

} // namespace kestor
