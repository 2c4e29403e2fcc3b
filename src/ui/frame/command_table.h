#pragma once

#include "controller/app_state.h"

#include <QStringView>

#include <cstdint>
#include <span>

namespace kestor {

/// The operations that stand in the menu bar.
enum class Command : std::uint8_t {
    addExistingWorkingCopy,
    createRepository,
    checkout,
    removeProject,
    openTerminal,
    openFinder,
    openBoth,
    refreshStatus,
    update,
    commit,
    info,
    cleanUp,
    upgrade,
    switchURL,
    relocateURL,
    addSelected,
    deleteSelected,
    revertSelected,
    ignoreSelected,
    includeIgnoredPath,
    resolveUsingWorking,
    resolveUsingMineFull,
    resolveUsingTheirsFull,
    lockSelected,
    unlockSelected,
    createChangelist,
    removeFromChangelist,
    applyPatch,
    makeDirectory,
    copy,
    move,
    showLog,
    showIncoming,
    showArchives,
    blamePath,
    diffAgainstRevision,
    pullFileAtRevision,
    exportFileAtRevision,
    createArchiveZip,
    rollbackRevision,
    merge,
    listTarget,
    catTarget,
    makeRemoteDirectory,
    importDirectory,
    exportTarget,
    listProperties,
    getProperty,
    setProperty,
    deleteProperty,
    runCustomCommand,
    showVersion,
    showHelp,
    setExecutable,
    useFromPath,
};

/// One item of the menu bar.
struct CommandRow { // NOLINT(clang-analyzer-optin.performance.Padding)
    /// Whether a line stands above the item.
    enum class Place : std::uint8_t { follows, beginsGroup };

    Command command;
    QStringView menu; ///< its title with its access key
    QStringView label;
    QStringView shortcut; ///< "" for none; the menu shows the first of several
    Place place;
    QCoro::Task<> (*operation)(AppState *);
};

/// All items, by menu and in the order shown.
std::span<const CommandRow> commandTable();

} // namespace kestor
