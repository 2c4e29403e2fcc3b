#include "ui/frame/command_table.h"

namespace kestor {

namespace {

using enum CommandRow::Place;

constexpr QStringView repository = u"Repository";
constexpr QStringView workingCopy = u"Working Copy";

constexpr CommandRow rows[] = {
    {Command::addExistingWorkingCopy, repository, u"Add Existing Working Copy...", u"Ctrl+O", follows,
     &AppState::addExistingWorkingCopy},
    {Command::removeProject, repository, u"Remove Project", u"", follows, &AppState::removeSelectedProject},
    {Command::openTerminal, repository, u"Open Terminal Here", u"", beginsGroup, &AppState::openTerminal},
    {Command::openFinder, repository, u"Open Finder Here", u"", follows, &AppState::openFinder},
    {Command::openBoth, repository, u"Open Both Here", u"", follows, &AppState::openBoth},
    {Command::refreshStatus, repository, u"Refresh Status", u"Ctrl+R", beginsGroup, &AppState::refreshAll},
    {Command::commit, repository, u"Commit", u"Ctrl+Return; Ctrl+Enter", follows, &AppState::commitSelected},
    {Command::info, repository, u"Info", u"", beginsGroup, &AppState::showRepositoryInfo},
    {Command::revertSelected, workingCopy, u"Revert Selected", u"", follows, &AppState::revertSelectedPaths},
    {Command::ignoreSelected, workingCopy, u"Ignore Selected", u"", follows, &AppState::ignoreSelectedPaths},
    {Command::includeIgnoredPath, workingCopy, u"Include Ignored Path...", u"", follows, &AppState::includeIgnoredPath},
};

} // namespace

std::span<const CommandRow> commandTable() {
    return rows;
}

} // namespace kestor
