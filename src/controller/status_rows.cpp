#include "controller/status_rows.h"

#include "controller/git_status.h"
#include "controller/tool_text.h"
#include "parsers/svn_xml_parsers.h"
#include "rules/project_bounds.h"
#include "rules/status_filter.h"
#include "rules/working_copy_paths.h"
#include "tools/arguments.h"

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

StatusRows statusRows(RepositoryKind kind, const QString &root, const QByteArray &output) {
    GitStatus read;
    if (kind == RepositoryKind::svn)
        read.items = parsedOutput<StatusParser>(output);
    else
        read = gitStatus(toolText(output));
    // No tool says of a project what leaves it; nothing outside shall be walked, shown or acted on if one does.
    read.items.removeIf(
        [](const WorkingCopyItem &item) { return leavesRoot(item.path) || isMetadataOfTheOtherTool(item); });
    return {displayedStatusItems(read.items, root, kind), read.facts};
}

} // namespace kestor
