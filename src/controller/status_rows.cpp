#include "controller/status_rows.h"

#include "controller/git_status.h"
#include "controller/tool_text.h"
#include "model/utf8_text.h"
#include "parsers/svn_xml_parsers.h"
#include "rules/project_bounds.h"
#include "rules/status_filter.h"
#include "rules/working_copy_paths.h"
#include "tools/arguments.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

/// Each tool calls the other one's metadata unversioned.
bool isMetadataOfTheOtherTool(const WorkingCopyItem &item) {
    const QStringView path = item.path.endsWith(u'/') ? QStringView(item.path).chopped(1) : item.path;
    return item.kind == SVNStatusKind::unversioned && isRepositoryMetadataName(path.sliced(path.lastIndexOf(u'/') + 1));
}

} // namespace

QStringList statusArguments(RepositoryKind kind) {
    if (kind == RepositoryKind::svn)
        return args(u"status", u"--xml", u"--no-ignore");
    return args(u"status", u"--porcelain=v1", u"--untracked-files=normal");
}

bool deniesWorkingCopy(const SVNCommandResult &status, const QString &root) {
    if (!status.stderrData.contains("W155007"))
        return false;
    // It says the same of folders below that are no working copies where one is expected.
    const QString folder = QFileInfo(root).canonicalFilePath();
    return toolText(status.stderrData).contains(u"W155007: '"_s + folder + u"' is not a working copy"_s);
}

std::shared_ptr<FolderReader> foldersReadAhead(RepositoryKind kind, const QString &root,
                                               const WorkingCopyItems &shown) {
    auto folders = std::make_shared<FolderReader>(root, metadataName(kind));
    QString last;
    for (qsizetype row = 0; row < shown.size(); ++row) {
        if (shown.statusAt(row).kind != SVNStatusKind::unversioned || !shown[row].unversionedRoot)
            continue;
        const QString folder = parentPath(shown.pathAt(row).toString());
        if (folder != last)
            folders->entries(folder);
        last = folder;
    }
    return folders;
}

StatusRows statusRows(RepositoryKind kind, const QByteArray &output, FolderReader &folders) {
    GitStatus read;
    bool isWhole = true;
    // A name that is no UTF-8 gets replacement characters, as the names of the disk do: letters would make it the name
    // of another file.
    if (kind == RepositoryKind::git) {
        read = gitStatus(utf8Text(output));
    } else {
        auto listed = StatusParser::parseWhole(isValidUtf8(output) ? output : toolText(output).toUtf8());
        isWhole = listed.has_value();
        read.items = std::move(listed).value_or(QList<WorkingCopyItem>());
    }
    // No tool says of a project what leaves it; nothing outside shall be walked, shown or acted on if one does.
    read.items.removeIf(
        [](const WorkingCopyItem &item) { return leavesRoot(item.path) || isMetadataOfTheOtherTool(item); });
    return {displayedStatusItems(read.items, folders), read.facts, isWhole};
}

} // namespace kestor
