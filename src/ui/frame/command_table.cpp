#include "ui/frame/command_table.h"

namespace kestor {

namespace {

using enum CommandRow::Place;

constexpr QStringView repository = u"&Repository";
constexpr QStringView workingCopy = u"&Working Copy";
constexpr QStringView history = u"&History";
constexpr QStringView remote = u"Re&mote";
constexpr QStringView properties = u"&Properties";
constexpr QStringView svn = u"&SVN";

template <auto operation>
QCoro::Task<> call(AppState *state) {
    return (state->*operation)();
}

/// Of a family of operations.
template <auto family, auto operation>
QCoro::Task<> call(AppState *state) {
    return ((state->*family).*operation)();
}

template <QCoro::Task<> (WorkingCopyActions::*operation)()>
constexpr auto act = call<&AppState::actions, operation>;

template <QCoro::Task<> (RepositorySetup::*operation)()>
constexpr auto setUp = call<&AppState::setup, operation>;

template <QCoro::Task<> (SvnProgram::*operation)()>
constexpr auto runSvn = call<&AppState::svnProgram, operation>;

template <ResolveChoice choice>
QCoro::Task<> resolve(AppState *state) {
    return state->actions.resolveSelectedPaths(choice);
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
    {Command::createRepository, repository, u"Create SVN Repository...", u"Ctrl+N", follows,
     setUp<&RepositorySetup::createSVNRepository>},
    {Command::checkout, repository, u"Checkout...", u"", follows, setUp<&RepositorySetup::checkoutRepository>},
    {Command::removeProject, repository, u"Remove Project", u"", follows, call<&AppState::removeSelectedProject>},
    {Command::openTerminal, repository, u"Open Terminal Here", u"", beginsGroup, call<&AppState::openTerminal>},
    {Command::openFinder, repository, u"Open Finder Here", u"", follows, call<&AppState::openFinder>},
    {Command::openBoth, repository, u"Open Both Here", u"", follows, call<&AppState::openBoth>},
    {Command::refreshStatus, repository, u"Refresh Status", u"Ctrl+R", beginsGroup, call<&AppState::refreshAll>},
    {Command::update, repository, u"Update", u"Ctrl+U", follows, act<&WorkingCopyActions::updateWorkingCopy>},
    {Command::commit, repository, u"Commit", u"Ctrl+Return; Ctrl+Enter", follows, call<&AppState::commitSelected>},
    {Command::info, repository, u"Info", u"", beginsGroup, call<&AppState::showRepositoryInfo>},
    {Command::cleanUp, repository, u"Cleanup", u"", follows, act<&WorkingCopyActions::cleanUp>},
    {Command::upgrade, repository, u"Upgrade Working Copy", u"", follows, act<&WorkingCopyActions::upgrade>},
    {Command::switchURL, repository, u"Switch URL Or Branch...", u"", beginsGroup, call<&AppState::switchURLOrBranch>},
    {Command::relocateURL, repository, u"Relocate URL...", u"", follows,
     act<&WorkingCopyActions::relocateWorkingCopyURL>},
    {Command::addSelected, workingCopy, u"Add Selected", u"", follows, act<&WorkingCopyActions::addSelectedPaths>},
    {Command::deleteSelected, workingCopy, u"Delete Selected", u"", follows,
     act<&WorkingCopyActions::deleteSelectedPaths>},
    {Command::revertSelected, workingCopy, u"Revert Selected", u"", follows, call<&AppState::revertSelectedPaths>},
    {Command::ignoreSelected, workingCopy, u"Ignore Selected", u"", follows, call<&AppState::ignoreSelectedPaths>},
    {Command::includeIgnoredPath, workingCopy, u"Include Ignored Path...", u"", follows,
     call<&AppState::includeIgnoredPath>},
    {Command::resolveUsingWorking, workingCopy, u"Resolve Selected Using Working", u"", beginsGroup,
     resolve<ResolveChoice::working>},
    {Command::resolveUsingMineFull, workingCopy, u"Resolve Selected Using Mine Full", u"", follows,
     resolve<ResolveChoice::mineFull>},
    {Command::resolveUsingTheirsFull, workingCopy, u"Resolve Selected Using Theirs Full", u"", follows,
     resolve<ResolveChoice::theirsFull>},
    {Command::lockSelected, workingCopy, u"Lock Selected", u"", beginsGroup,
     act<&WorkingCopyActions::lockSelectedPaths>},
    {Command::unlockSelected, workingCopy, u"Unlock Selected", u"", follows,
     act<&WorkingCopyActions::unlockSelectedPaths>},
    {Command::createChangelist, workingCopy, u"Create Changelist...", u"", follows,
     act<&WorkingCopyActions::createChangelist>},
    {Command::removeFromChangelist, workingCopy, u"Remove From Changelist", u"", follows,
     act<&WorkingCopyActions::removeFromChangelist>},
    {Command::applyPatch, workingCopy, u"Apply Patch...", u"", beginsGroup, act<&WorkingCopyActions::applyPatch>},
    {Command::makeDirectory, workingCopy, u"Make Directory...", u"", follows,
     act<&WorkingCopyActions::makeDirectoryInWorkingCopy>},
    {Command::copy, workingCopy, u"Copy...", u"", follows, act<&WorkingCopyActions::copyItem>},
    {Command::move, workingCopy, u"Move...", u"", follows, act<&WorkingCopyActions::moveItem>},
    {Command::showLog, history, u"Show Log", u"", follows, show<WorkflowTab::history>},
    {Command::showIncoming, history, u"Show Incoming Changes", u"", follows, show<WorkflowTab::incoming>},
    {Command::showArchives, history, u"Show Archives", u"", follows, show<WorkflowTab::archives>},
    {Command::blamePath, history, u"Blame Path...", u"", beginsGroup, act<&WorkingCopyActions::showBlame>},
    {Command::diffAgainstRevision, history, u"Diff Against Revision...", u"", follows,
     call<&AppState::showDiffAgainstRevision>},
    {Command::pullFileAtRevision, history, u"Pull File At Revision...", u"", follows,
     call<&AppState::pullFileAtRevision>},
    {Command::exportFileAtRevision, history, u"Export File At Revision...", u"", follows,
     call<&AppState::exportFileAtRevision>},
    {Command::createArchiveZip, history, u"Create Archive Zip...", u"", follows, call<&AppState::createArchiveZip>},
    {Command::rollbackRevision, history, u"Rollback Selected Revision", u"", beginsGroup,
     call<&AppState::rollbackSelectedRevision>},
    {Command::merge, history, u"Merge...", u"", follows, act<&WorkingCopyActions::merge>},
    {Command::listTarget, remote, u"List URL Or Path...", u"", follows, call<&AppState::listTarget>},
    {Command::catTarget, remote, u"Cat URL Or Path...", u"", follows, call<&AppState::catTarget>},
    {Command::makeRemoteDirectory, remote, u"Make Remote Directory...", u"", beginsGroup,
     setUp<&RepositorySetup::makeRemoteDirectory>},
    {Command::importDirectory, remote, u"Import Directory...", u"", follows, setUp<&RepositorySetup::importDirectory>},
    {Command::exportTarget, remote, u"Export URL Or Path...", u"", follows, setUp<&RepositorySetup::exportRepository>},
    {Command::listProperties, properties, u"List Properties...", u"", follows,
     act<&WorkingCopyActions::listProperties>},
    {Command::getProperty, properties, u"Get Property...", u"", follows, act<&WorkingCopyActions::getProperty>},
    {Command::setProperty, properties, u"Set Property...", u"", follows, act<&WorkingCopyActions::setProperty>},
    {Command::deleteProperty, properties, u"Delete Property...", u"", follows,
     act<&WorkingCopyActions::deleteProperty>},
    {Command::runCustomCommand, svn, u"Run svn Command...", u"", follows, runSvn<&SvnProgram::runCustomSVNCommand>},
    {Command::showVersion, svn, u"Show svn Version", u"", beginsGroup, runSvn<&SvnProgram::showSVNVersion>},
    {Command::showHelp, svn, u"Show svn Help", u"", follows, runSvn<&SvnProgram::showSVNHelp>},
    {Command::setExecutable, svn, u"Set svn Executable...", u"", beginsGroup, runSvn<&SvnProgram::setSVNExecutable>},
    {Command::useFromPath, svn, u"Use svn From PATH", u"", follows, runSvn<&SvnProgram::useSVNFromPath>},
};

} // namespace

std::span<const CommandRow> commandTable() {
    return rows;
}

} // namespace kestor
