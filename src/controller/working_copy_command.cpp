#include "controller/working_copy_command.h"

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

using Field = CommandField;
using enum CommandField::Kind;
using enum CommandField::Offer;
using enum CommandField::Need;

constexpr QStringView noChangedPath = u"Select at least one changed path.";
constexpr QStringView noConflict = u"Select a conflicted path first.";
constexpr ToolCommand none{};

constexpr Field name{u"name", u"Name", text};
constexpr Field value{u"value", u"Value", text, nothing, optional};
constexpr Field pathOrRoot{u"path", u"Path", target, actionPathOrRoot};
constexpr Field changelistFields[] = {name};
constexpr Field directoryFields[] = {{u"path", u"Path", target}};
constexpr Field copyFields[] = {{u"source", u"Source", target, actionPath},
                                {u"target", u"Target", target},
                                {u"message", u"Message", text, nothing, optional}};
constexpr Field propertiesFields[] = {pathOrRoot};
constexpr Field propertyFields[] = {name, pathOrRoot};
constexpr Field setPropertyFields[] = {name, value, pathOrRoot};
constexpr Field mergeFields[] = {{u"source", u"Source URL Or Path", target},
                                 {u"range", u"Revision", text, nothing, optional}};
constexpr Field switchFields[] = {{u"url", u"URL", text, url}};
constexpr Field relocateFields[] = {{u"from", u"From URL", text, repositoryRoot}, {u"to", u"To URL", text}};
constexpr Field blameFields[] = {{u"path", u"Path", target, actionPath}};

// In the order of WorkingCopyAction.
constexpr WorkingCopyCommand commands[] = {
    {{u"Add", u"add --parents --force [--depth:depth]"}, {u"Add", u"add"}, RefreshAfter::yes, {}, noChangedPath},
    {{u"Delete", u"delete"}, {u"Delete", u"rm"}, RefreshAfter::yes, {}, noChangedPath},
    {{u"Resolve", u"resolve --accept {accept}"}, none, RefreshAfter::yes, {}, noConflict},
    {{u"Changelist", u"changelist {name}"}, none, RefreshAfter::yes, changelistFields, noChangedPath},
    {{u"Remove Changelist", u"changelist --remove"}, none, RefreshAfter::yes, {}, noChangedPath},
    {{u"Patch", u"patch {file}"}, none, RefreshAfter::yes},
    {{u"Make Directory", u"mkdir {path}"}, none, RefreshAfter::yes, directoryFields},
    {{u"Copy", u"copy {source} {target} [-m:message]"}, none, RefreshAfter::yes, copyFields},
    {{u"Move", u"move {source} {target} [-m:message]"}, none, RefreshAfter::yes, copyFields},
    {{u"Properties", u"proplist -v {path}"}, none, RefreshAfter::no, propertiesFields},
    {{u"Get Property", u"propget {name} {path}"}, none, RefreshAfter::no, propertyFields},
    {{u"Set Property", u"propset {name} {-value} {path}"}, none, RefreshAfter::yes, setPropertyFields},
    {{u"Delete Property", u"propdel {name} {path}"}, none, RefreshAfter::yes, propertyFields},
    {{u"Merge", u"merge [-r:range] {source}"}, none, RefreshAfter::yes, mergeFields},
    {{u"Update", u"update"}, {u"Pull", u"pull --ff-only"}, RefreshAfter::yes},
    {{u"Switch", u"switch {url}"}, none, RefreshAfter::yes, switchFields},
    {{u"Relocate", u"relocate {from} {to}"}, none, RefreshAfter::yes, relocateFields},
    {{u"Blame", u"blame {path}"}, {u"Blame", u"blame -- {path}"}, RefreshAfter::no, blameFields},
    {{u"Cleanup", u"cleanup"}, none, RefreshAfter::yes},
    {{u"Upgrade", u"upgrade"}, none, RefreshAfter::yes},
    {{u"Lock", u"lock"}, none, RefreshAfter::yes, {}, noChangedPath},
    {{u"Unlock", u"unlock"}, none, RefreshAfter::yes, {}, noChangedPath},
};
static_assert(std::size(commands) == static_cast<std::size_t>(WorkingCopyAction::unlock) + 1);

void appendFilled(QStringList &filled, const QString &word, const QMap<QString, QString> &entered) {
    const QString inside = word.mid(1).chopped(1);
    if (word.startsWith(u"{-")) {
        const QString text = entered.value(inside.mid(1));
        if (text.startsWith(u'-'))
            filled.append(u"--"_s);
        filled.append(text);
    } else if (word.startsWith(u'{')) {
        filled.append(entered.value(inside));
    } else if (word.startsWith(u'[')) {
        const QString text = entered.value(inside.section(u':', 1));
        if (!text.isEmpty())
            filled += {inside.section(u':', 0, 0), text};
    } else {
        filled.append(word);
    }
}

bool isUnknownToGit(const WorkingCopyItem &item, const GitRowFacts &facts) {
    return item.kind == SVNStatusKind::deleted && facts.notInIndex.contains(item.path);
}

bool isUnversioned(const WorkingCopyItem &item) {
    return item.kind == SVNStatusKind::unversioned || item.kind == SVNStatusKind::ignored;
}

/// The rows of that kind: of those acted on, else the selected one when it is.
template <typename Predicate>
QList<WorkingCopyItem> rowsOf(Predicate isWanted, const QList<WorkingCopyItem> &acted,
                              const std::optional<WorkingCopyItem> &selected) {
    QList<WorkingCopyItem> wanted;
    std::ranges::copy_if(acted, std::back_inserter(wanted), isWanted);
    if (wanted.isEmpty() && selected && isWanted(*selected))
        wanted.append(*selected);
    return wanted;
}

QStringList rowPaths(const QList<WorkingCopyItem> &items) {
    QStringList paths;
    for (const WorkingCopyItem &item : items)
        paths.append(item.path);
    return paths;
}

} // namespace

const WorkingCopyCommand &workingCopyCommand(WorkingCopyAction action) {
    return commands[static_cast<std::size_t>(action)];
}

bool isComplete(const WorkingCopyCommand &command, const QMap<QString, QString> &entered) {
    return std::ranges::none_of(command.fields, [&entered](const CommandField &field) {
        return field.need == required && entered.value(field.key.toString()).isEmpty();
    });
}

QStringList filledIn(const ToolCommand &command, const QMap<QString, QString> &entered) {
    QStringList filled;
    for (const QString &word : command.words.toString().split(u' '))
        appendFilled(filled, word, entered);
    return filled;
}

Resolvable resolvable(const QList<WorkingCopyItem> &items) {
    if (std::ranges::any_of(items, &WorkingCopyItem::treeConflict))
        return Resolvable::asIs;
    return std::ranges::any_of(items, isInConflict) ? Resolvable::byAnySide : Resolvable::nothing;
}

QList<WorkingCopyItem> itemsToResolve(const QList<WorkingCopyItem> &acted,
                                      const std::optional<WorkingCopyItem> &selected) {
    const QList<WorkingCopyItem> inConflict = rowsOf(isInConflict, acted, selected);
    return inConflict.isEmpty() ? acted : inConflict;
}

QString onlyFoldersText() {
    return u"Git keeps only files, and these folders have none that are listed."_s;
}

QList<WorkingCopyItem> unversionedItems(const QList<WorkingCopyItem> &acted,
                                        const std::optional<WorkingCopyItem> &selected) {
    return rowsOf(isUnversioned, acted, selected);
}

QStringList pathsFor(WorkingCopyAction action, RepositoryKind kind, const QList<WorkingCopyItem> &items,
                     const GitRowFacts &facts) {
    QStringList paths;
    for (const WorkingCopyItem &item : items) {
        if (kind == RepositoryKind::git && isUnknownToGit(item, facts))
            continue;
        paths.append(item.path);
        if (action == WorkingCopyAction::add && facts.notYetRenamed.contains(item.path))
            paths.append(facts.oldNames.value(item.path));
    }
    return paths.isEmpty() ? rowPaths(items) : paths;
}

} // namespace kestor
