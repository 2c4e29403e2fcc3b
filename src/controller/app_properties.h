#pragma once

#include "controller/busy_kind.h"
#include "model/command_output.h"
#include "model/custom_language_rule.h"
#include "model/diff_preview.h"
#include "model/file_history.h"
#include "model/line_change_summary.h"
#include "model/log_entry.h"
#include "model/marked_paths.h"
#include "model/project.h"
#include "model/repository_info.h"
#include "model/workflow_tab.h"
#include "model/working_copy_items.h"

#include <QList>
#include <QProperty>
#include <QString>
#include <QUuid>

#include <optional>

namespace kestor {

/// One revision of one file, by the identities of both.
struct FileRevisionID {
    QString path{};
    qint64 revision = 0;

    friend bool operator==(const FileRevisionID &, const FileRevisionID &) = default;
};

/// Everything the window shows. Setting an equal value publishes nothing. Main thread only. Views observe; they write
/// the selections (`selectedProjectID`, `selectedTab`, `selectedChangeID`, ...), the ticks and the text fields, and
/// make `alert` and `commandOutput` absent when the user dismisses them.
struct AppProperties {
    QProperty<QList<Project>> projects{}; ///< sorted by name
    QProperty<std::optional<QUuid>> selectedProjectID{};
    QProperty<WorkflowTab> selectedTab{WorkflowTab::changes};

    QProperty<WorkingCopyItems> changes{};                ///< sorted by path
    QProperty<bool> changesLoaded{false};                 ///< a load has succeeded: no `changes` means a clean project
    QProperty<std::optional<QString>> selectedChangeID{}; ///< a path
    QProperty<MarkedPaths> selectedCommitPaths{};         ///< the ticks of rows of `changes`
    QProperty<LineChangeSummary> changesLineSummary{};
    QProperty<QString> diffText{};        ///< as printed; "" when nothing is selected
    QProperty<DiffPreview> diffPreview{}; ///< kind `empty`: the diff text alone is shown
    /// Path of the row that `diffText` and `diffPreview` belong to; published after them.
    QProperty<std::optional<QString>> diffPath{};

    QProperty<QList<LogEntry>> logEntries{}; ///< newest first; until `historyLoaded` only the beginning of the log
    /// The files of `logEntries`, grouped on a worker and published before `logEntries`; grouped afresh when the
    /// relative URL of `repositoryInfo` changes.
    QProperty<FileHistory> fileHistoryItems{};
    QProperty<bool> historyLoaded{false}; ///< a load has succeeded: `logEntries` is the whole log
    QProperty<std::optional<QString>> selectedHistoryPath{};
    QProperty<std::optional<qint64>> selectedRevision{};
    QProperty<LineChangeSummary> historyLineSummary{}; ///< follows the list later
    QProperty<QString> historyDiffText{};              ///< as printed; "" when no revision is selected
    QProperty<DiffPreview> historyDiffPreview{};       ///< kind `empty`: the diff text alone is shown
    /// The revision that `historyDiffText` and `historyDiffPreview` belong to; published after them.
    QProperty<std::optional<FileRevisionID>> historyDiffID{};

    QProperty<QList<LogEntry>> archiveEntries{}; ///< newest first
    QProperty<bool> archivesLoaded{false};       ///< a load has succeeded: no `archiveEntries` means an empty log
    QProperty<std::optional<qint64>> selectedArchiveEntryID{}; ///< a revision number

    QProperty<QList<LogEntry>> incomingEntries{}; ///< newest first
    QProperty<bool> incomingLoaded{false};        ///< a load has succeeded: no `incomingEntries` means nothing comes
    QProperty<std::optional<qint64>> selectedIncomingRevision{};
    QProperty<LineChangeSummary> incomingLineSummary{}; ///< follows the list later; zero until it is known
    QProperty<QString> incomingDiffText{};              ///< as printed; "" when no revision is selected
    QProperty<DiffPreview> incomingDiffPreview{};       ///< kind `empty`: the diff text alone is shown
    /// The revision that `incomingDiffText` and `incomingDiffPreview` belong to; published after them.
    QProperty<std::optional<qint64>> incomingDiffRevision{};
    QProperty<std::optional<qint64>> incomingBaseRevision{};
    QProperty<std::optional<qint64>> incomingHeadRevision{};
    QProperty<QList<WorkingCopyItem>> incomingOutdatedItems{}; ///< sorted by path, those of externals too

    QProperty<QString> svnExecutablePath{}; ///< the one chosen; "" for the one found in PATH
    QProperty<QString> commitMessage{};
    QProperty<RepositoryInfo> repositoryInfo{};
    QProperty<std::optional<QString>> busyMessage{}; ///< present: commands are held back
    QProperty<BusyKind> busyKind{BusyKind::command}; ///< the strictest of the running work, while there is a message
    QProperty<std::optional<AppAlert>> alert{};
    QProperty<std::optional<CommandOutput>> commandOutput{};
    QProperty<QList<CustomLanguageRule>> customLanguageRules{};
    /// Of the selected project, the largest first; absent until its files have been counted.
    QProperty<std::optional<QList<LanguageDistributionEntry>>> languageDistribution{};
};

} // namespace kestor
