#pragma once

#include "controller/workspace.h"

#include <QMap>
#include <QStringList>
#include <QStringView>

#include <cstdint>
#include <span>

namespace kestor {

/// The commands on a working copy that are one run of its tool each.
enum class WorkingCopyAction : std::uint8_t {
    add,
    remove,
    resolve,
    createChangelist,
    removeFromChangelist,
    applyPatch,
    makeDirectory,
    copy,
    move,
    listProperties,
    getProperty,
    setProperty,
    deleteProperty,
    merge,
    update,
    switchURL,
    relocateURL,
    blame,
    cleanup,
    upgrade,
    lock,
    unlock,
};

/// The words of a run, parted by blanks; the paths acted on follow. "{key}" stands for what was entered, "{-key}" for
/// that with "--" before what looks like an option, "[option:key]" for an option with it, left out when it is empty.
struct ToolCommand {
    QStringView title; ///< also of the prompt
    QStringView words; ///< "" when the tool has no such command
};

/// One text that a command asks for.
struct CommandField {
    /// What it holds at first.
    enum class Offer : std::uint8_t { nothing, actionPath, actionPathOrRoot, url, repositoryRoot };
    /// Whether a path of the working copy in it is made a target of the tool.
    enum class Kind : std::uint8_t { text, target };
    /// Without a required one nothing runs.
    enum class Need : std::uint8_t { optional, required };

    QStringView key;
    QStringView label;
    Kind kind;
    Offer offer = Offer::nothing;
    Need need = Need::required;
};

struct WorkingCopyCommand {
    ToolCommand svn;
    ToolCommand git;
    RefreshAfter refreshAfter;
    std::span<const CommandField> fields = {}; ///< empty: asks nothing
    QStringView pathsMissing = {};             ///< what an alert says when there is no path to act on

    const ToolCommand &of(RepositoryKind kind) const { return kind == RepositoryKind::svn ? svn : git; }
    bool actsOnPaths() const { return !pathsMissing.isEmpty(); }
};

const WorkingCopyCommand &workingCopyCommand(WorkingCopyAction action);

/// Whether every required field has a text.
bool isComplete(const WorkingCopyCommand &command, const QMap<QString, QString> &entered);

/// The words with what was entered, targets as the tool takes them.
QStringList filledIn(const ToolCommand &command, const QMap<QString, QString> &entered);

/// What can be made of the conflicts of some rows.
enum class Resolvable : std::uint8_t {
    nothing,
    asIs, ///< a tree conflict, which has no file of either side
    byAnySide,
};

Resolvable resolvable(const QList<WorkingCopyItem> &items);

/// The rows to resolve: of those acted on the ones in conflict, else the selected one when it is, else all acted on.
QList<WorkingCopyItem> itemsToResolve(const QList<WorkingCopyItem> &acted,
                                      const std::optional<WorkingCopyItem> &selected);

/// Why nothing can be done in Git for rows that are unversioned folders: each stands for the folder alone.
QString onlyFoldersText();

/// The rows not under version control: of those acted on the unversioned and ignored ones, else the selected one when
/// it is.
QList<WorkingCopyItem> unversionedItems(const QList<WorkingCopyItem> &acted,
                                        const std::optional<WorkingCopyItem> &selected);

/// The paths of the rows that the command can act on: Git knows staged deletions no longer. All of them when none is
/// left, so that the tool says why. Old names that the index still has go along.
QStringList pathsFor(WorkingCopyAction action, RepositoryKind kind, const QList<WorkingCopyItem> &items,
                     const GitRowFacts &facts);

} // namespace kestor
