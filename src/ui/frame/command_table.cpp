#include "ui/frame/command_table.h"

namespace kestor {

namespace {

using enum CommandRow::Place;

constexpr QStringView repository = u"Repository";
constexpr QStringView workingCopy = u"Working Copy";
constexpr QStringView history = u"History";
constexpr QStringView remote = u"Remote";

template <auto operation>
QCoro::Task<> call(AppState *state) {
    return (state->*operation)();
}

/// As a click on the tab does.
template <WorkflowTab tab>
QCoro::Task<> show(AppState *state) {
    state->selectedTab = tab;
    return state->tabChanged();
}

constexpr CommandRow rows[] = {
    {Command::addExistingWorkingCopy, repository, u"Add Existing Working Copy...", u"Ctrl+O", follows,
     call<&AppState::addExistingWorkingCopy>},
    {Command::removeProject, repository, u"Remove Project", u"", follows, call<&AppState::removeSelectedProject>},
    {Command::openTerminal, repository, u"Open Terminal Here", u"", beginsGroup, call<&AppState::openTerminal>},
    {Command::openFinder, repository, u"Open Finder Here", u"", follows, call<&AppState::openFinder>},
    {Command::openBoth, repository, u"Open Both Here", u"", follows, call<&AppState::openBoth>},
    {Command::refreshStatus, repository, u"Refresh Status", u"Ctrl+R", beginsGroup, call<&AppState::refreshAll>},
    {Command::commit, repository, u"Commit", u"Ctrl+Return; Ctrl+Enter", follows, call<&AppState::commitSelected>},
    {Command::info, repository, u"Info", u"", beginsGroup, call<&AppState::showRepositoryInfo>},
    {Command::revertSelected, workingCopy, u"Revert Selected", u"", follows, call<&AppState::revertSelectedPaths>},
    {Command::ignoreSelected, workingCopy, u"Ignore Selected", u"", follows, call<&AppState::ignoreSelectedPaths>},
    {Command::includeIgnoredPath, workingCopy, u"Include Ignored Path...", u"", follows,
     call<&AppState::includeIgnoredPath>},
    {Command::showLog, history, u"Show Log", u"", follows, show<WorkflowTab::history>},
    {Command::showArchives, history, u"Show Archives", u"", follows, show<WorkflowTab::archives>},
    {Command::diffAgainstRevision, history, u"Diff Against Revision...", u"", beginsGroup,
     call<&AppState::showDiffAgainstRevision>},
    {Command::pullFileAtRevision, history, u"Pull File At Revision...", u"", follows,
     call<&AppState::pullFileAtRevision>},
    {Command::exportFileAtRevision, history, u"Export File At Revision...", u"", follows,
     call<&AppState::exportFileAtRevision>},
    {Command::createArchiveZip, history, u"Create Archive Zip...", u"", follows, call<&AppState::createArchiveZip>},
    {Command::rollbackRevision, history, u"Rollback Selected Revision", u"", beginsGroup,
     call<&AppState::rollbackSelectedRevision>},
    {Command::listTarget, remote, u"List URL Or Path...", u"", follows, call<&AppState::listTarget>},
    {Command::catTarget, remote, u"Cat URL Or Path...", u"", follows, call<&AppState::catTarget>},
};

} // namespace

std::span<const CommandRow> commandTable() {
    return rows;
}

} // namespace kestor
