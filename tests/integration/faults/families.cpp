#include "families.h"

#include "support/lists.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace kestor::testing {

namespace {

enum Kinds : unsigned { svn = 1, git = 2, both = 3 };

constexpr unsigned reading = tool | folder;
constexpr unsigned writing = reading | writableFolder | disk;
constexpr unsigned elsewhere = tool | disk | preferencesFile; // what is made becomes a project
constexpr unsigned preferences = preferencesFile | disk;

/// The family for each kind of working copy that has it.
struct Row {
    const char *name = "";
    QCoro::Task<> (*start)(Session &session) = nullptr;
    const char *alert = "";
    unsigned needs = 0;
    unsigned kinds = both;
    const char *preparation = "";
    bool (*isShown)(const AppState &state) = nullptr;
};

// Preparations of the working copy.

constexpr auto conflict = "svn update -q -r 2 long.txt; echo mine >> long.txt\n"
                          "svn update -q --accept postpone long.txt";

constexpr auto olderPatch = "svn diff -r 3:2 long.txt > ../outside/older.patch";

/// What "other" and the repository that is pulled from have is ignored here.
constexpr auto ignoredHere = "echo theirs > ours.keep; git add -f ours.keep; git commit -q -m fourth\n"
                             "git branch -f other; git push -q ../repo.git main; git reset -q HEAD~\n"
                             "echo mine > ours.keep; echo '*.keep' > .git/info/exclude\n"
                             "git remote add origin ../repo.git; git config branch.main.remote origin\n"
                             "git config branch.main.merge refs/heads/main";

const auto deleteMissing = [](Session &s) {
    s.app.setCommitSelection(MarkedPaths::all(s.app.changes), false);
    s.app.selectedChangeID = u"gone.txt"_s;
    return s.app.actions.deleteSelectedPaths();
};

const auto incomingDiff = [](Session &s) {
    s.app.incomingEntries = s.app.logEntries.value();
    s.app.selectedIncomingRevision = s.app.selectedRevision.value();
    return s.app.incoming.selectedIncomingRevisionChanged();
};

const auto resolve = [](Session &s) {
    s.app.selectedChangeID = u"long.txt"_s;
    return s.app.actions.resolveSelectedPaths(ResolveChoice::theirsFull);
};

const auto applyPatch = [](Session &s) {
    s.user.chosenFile = s.project.path + u"/../outside/older.patch"_s;
    return s.app.actions.applyPatch();
};

const auto merge = [](Session &s) {
    s.user.promptAnswer = u"source=.|range=3:2"_answer;
    return s.app.actions.merge();
};

const auto switchURL = [](Session &s) {
    s.user.promptAnswer = u"url=^/branches/b"_answer;
    return s.app.switchURLOrBranch();
};

const auto addProject = [](Session &s) {
    s.app.projects = QList<Project>();
    s.user.chosenDirectory = s.project.path;
    return s.app.addExistingWorkingCopy();
};

const auto exportTrunk = [](Session &s) {
    s.user.promptAnswer->insert(u"source"_s, s.user.promptAnswer->value(u"url"_s));
    return s.app.setup.exportRepository();
};

const auto makeRemote = [](Session &s) {
    s.user.promptAnswer->insert(u"url"_s, s.user.promptAnswer->value(u"url"_s) + u"/made"_s);
    s.user.promptAnswer->insert(u"message"_s, u"m"_s);
    return s.app.setup.makeRemoteDirectory();
};

const auto showConfiguration = [](Session &s) {
    s.app.selectedTab = WorkflowTab::configuration;
    return s.app.tabChanged();
};

const auto addLanguage = [](Session &s) {
    s.app.languageRules.addCustomLanguageRule();
    return s.app.tabChanged(); // to nothing
};

// Diffs and shares have no alert of their own: the load around them tells what is wrong.
const Row rows[] = {
    {"refresh", [](Session &s) { return s.app.refreshAll(); }, "Status Failed", reading},
    {"selected project", [](Session &s) { return s.app.projectSelectionChanged(); }, "Status Failed", reading},
    {"info", [](Session &s) { return s.app.showRepositoryInfo(); }, "Info Failed", reading},
    {"diff", [](Session &s) { return s.app.selectedChangeChanged(); }, "", 0, both, "",
     [](const AppState &app) {
         return app.diffPath.value() && !app.diffText.value().isEmpty();
     }},
    {"history", [](Session &s) { return s.app.refreshHistory(); }, "History Failed", reading},
    {"history diff", [](Session &s) { return s.app.selectedHistoryRevisionChanged(); }, "", 0, both, "",
     [](const AppState &app) {
         return app.historyDiffID.value() && !app.historyDiffText.value().isEmpty();
     }},
    {"archives", [](Session &s) { return s.app.refreshArchives(); }, "Archives Failed", reading},
    {"incoming", [](Session &s) { return s.app.incoming.refreshIncoming(); }, "Incoming Failed", reading, svn},
    {"incoming diff", incomingDiff, "", 0, svn, "",
     [](const AppState &app) {
         return app.incomingDiffRevision.value() && !app.incomingDiffText.value().isEmpty();
     }},
    {"language shares", showConfiguration},
    {"commit", [](Session &s) { return s.app.commitSelected(); }, "Commit Failed", writing},
    {"revert", [](Session &s) { return s.app.revertAllPaths(); }, "Revert Failed", writing},
    {"delete unversioned", [](Session &s) { return s.app.revertPath(u"new.txt"_s); }, "(Revert|Status) Failed",
     reading | writableFolder},
    {"ignore", [](Session &s) { return s.app.ignoreSelectedPaths(); }, "(Ignore|Status) Failed", writing},
    {"add", [](Session &s) { return s.app.actions.addSelectedPaths(); }, "Add Failed", writing},
    {"delete", deleteMissing, "Delete Failed", writing},
    {"move", [](Session &s) { return s.app.actions.moveItem(); }, "Move Failed", writing, svn},
    {"update", [](Session &s) { return s.app.actions.updateWorkingCopy(); }, "Update Failed", writing, svn},
    {"pull", [](Session &s) { return s.app.actions.updateWorkingCopy(); }, "Pull Failed", writing, git, ignoredHere},
    {"switch URL", switchURL, "Switch Failed", writing, svn, "svn copy -q -m b ^/trunk@3 ^/branches/b"},
    {"merge", merge, "Merge Failed", writing, svn, "svn revert -q gone.txt"},
    {"resolve", resolve, "Resolve Failed", writing, svn, conflict},
    {"apply patch", applyPatch, "Patch Failed", writing, svn, olderPatch},
    {"clean up", [](Session &s) { return s.app.actions.cleanUp(); }, "Cleanup Failed", writing, svn},
    {"set property", [](Session &s) { return s.app.actions.setProperty(); }, "Set Property Failed", writing, svn},
    {"typed command", [](Session &s) { return s.app.svnProgram.runCustomSVNCommand(); }, "svn propset Failed", writing,
     svn},
    {"switch branch", [](Session &s) { return s.app.switchURLOrBranch(); }, "Switch Branch Failed", writing, git,
     ignoredHere},
    {"blame", [](Session &s) { return s.app.actions.showBlame(); }, "Blame Failed", reading, git},
    {"blame", [](Session &s) { return s.app.actions.showBlame(); }, "Blame Failed", reading | disk, svn},
    // svn merges into nothing that is missing.
    {"roll back", [](Session &s) { return s.app.rollbackSelectedRevision(); }, "Rollback Failed", writing, both,
     ": > gone.txt"},
    {"pull file", [](Session &s) { return s.app.pullFileAtRevision(); }, "Pull File Failed", writing},
    {"export file", [](Session &s) { return s.app.exportFileAtRevision(); }, "Export File Failed", reading | disk},
    {"archive", [](Session &s) { return s.app.createArchiveZip(); }, "Create Archive Zip Failed", reading | disk},
    {"add project", addProject, "(Could Not Add Project|Preferences Not Saved)", reading | preferences},
    {"create repository", [](Session &s) { return s.app.setup.createSVNRepository(); },
     "(Create SVN Repository Failed|Preferences Not Saved)", elsewhere, svn},
    {"check out", [](Session &s) { return s.app.setup.checkoutRepository(); },
     "(Checkout Failed|Preferences Not Saved)", elsewhere},
    {"remote directory", makeRemote, "Remote Directory Failed", reading | disk, svn},
    {"import", [](Session &s) { return s.app.setup.importDirectory(); }, "Import Failed", tool | disk, svn},
    {"export", exportTrunk, "Export Failed", reading | disk, svn},
    {"language rule", addLanguage, "Preferences Not Saved", preferences, svn},
    {"svn executable", [](Session &s) { return s.app.svnProgram.setSVNExecutable(); }, "Preferences Not Saved",
     preferences, svn},
    {"remove project", [](Session &s) { return s.app.removeSelectedProject(); }, "Preferences Not Saved", preferences,
     svn},
};

} // namespace

QList<Family> allFamilies() {
    QList<Family> families;
    for (const Row &row : rows) {
        for (const RepositoryKind kind : {RepositoryKind::svn, RepositoryKind::git}) {
            if ((row.kinds & (kind == RepositoryKind::svn ? svn : git)) != 0)
                families.append({QString::fromLatin1(row.name) + u' ' + rawValue(kind).toString(), kind,
                                 QString::fromLatin1(row.alert), row.needs, row.start, row.preparation, row.isShown});
        }
    }
    return families;
}

} // namespace kestor::testing
