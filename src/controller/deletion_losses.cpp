#include "controller/deletion_losses.h"

#include "controller/named_paths.h"
#include "controller/path_command.h"
#include "controller/tool_text.h"
#include "parsers/svn_xml_parsers.h"
#include "rules/working_copy_paths.h"
#include "tools/arguments.h"

#include <QFileInfo>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kestor {

QString deletionQuestion(qsizetype count, const DeletionLosses &losses) {
    QString question = u"Delete %1 path(s)?"_s.arg(count);
    if (losses.inConflict > 0)
        question += u" %1 path(s) in conflict will lose what was resolved in them so far."_s.arg(losses.inConflict);
    if (!losses.ignored.isEmpty())
        question += u" %1 ignored path(s) in these folders will be deleted from disk, too: %2"_s.arg(
            QString::number(losses.ignored.size()), namedPaths(losses.ignored));
    return question;
}

QStringList foldersAmong(const QList<WorkingCopyItem> &items, const QString &root) {
    QStringList folders;
    for (const WorkingCopyItem &item : items) {
        if (workingCopyPathIsDirectory(item.path, root))
            folders.append(item.path);
    }
    return folders;
}

QStringList ignoredFilesArguments(const QStringList &folders) {
    PathCommand command{args(u"status", u"--xml", u"--no-ignore"), folders};
    if (needsPathFile(command))
        command.paths.clear();
    return plainArguments(RepositoryKind::svn, command);
}

QStringList ignoredBelow(const QStringList &folders, const QByteArray &printed) {
    const QSet<QString> deleted(folders.begin(), folders.end());
    QStringList ignored;
    for (const WorkingCopyItem &row : parsedOutput<StatusParser>(printed)) {
        const QStringList above = foldersAbove(row.path);
        if (row.kind == SVNStatusKind::ignored &&
            std::ranges::any_of(above, [&deleted](const QString &folder) { return deleted.contains(folder); }))
            ignored.append(row.path);
    }
    return ignored;
}

void takeBackFromKeptFolders(QList<TrashedPath> moved) {
    moved.removeIf([](const TrashedPath &path) { return !isDirectory(QFileInfo(path.original).path()); });
    takeBack(moved);
}

} // namespace kestor
