#include "families.h"

using namespace Qt::StringLiterals;

namespace kestor::testing {

namespace {

using Start = QCoro::Task<> (*)(Session &session, const World &world);

enum Kinds : unsigned { svn = 1, git = 2, both = 3 };

/// The family for each kind of working copy that has it.
struct Row {
    const char *name = "";
    unsigned kinds = both;
    const char *alert = "";
    unsigned needs = 0;
    Start start = nullptr;
};

void tick(Session &session, const QString &path) {
    session.app.setCommitSelection(session.app.changes, false);
    session.app.selectedChangeID = path;
}

void answer(Session &session, const QMap<QString, QString> &answers) {
    session.user.promptAnswer = answers;
}

QString repositoryURL(const World &world) {
    return u"file://"_s + (world.kind == RepositoryKind::svn ? world.path(u"repo/trunk"_s) : world.path(u"wc/.git"_s));
}

// Diffs and shares have no alert of their own: the load around them tells what is wrong.
const Row loading[] = {
    {"status", both, "Status Failed", tool | folder,
     [](Session &s, const World &) {
         return s.app.refreshStatus();
     }},
    {"refresh", both, "Status Failed", tool | folder,
     [](Session &s, const World &) {
         return s.app.refreshAll();
     }},
    {"selected project", both, "Status Failed", tool | folder,
     [](Session &s, const World &) {
         return s.app.projectSelectionChanged();
     }},
    {"info", both, "Info Failed", tool | folder,
     [](Session &s, const World &) {
         return s.app.showRepositoryInfo();
     }},
    {"diff", both, "", 0,
     [](Session &s, const World &) {
         return s.app.selectedChangeChanged();
     }},
    {"history", both, "History Failed", tool | folder,
     [](Session &s, const World &) {
         return s.app.loadHistory();
     }},
    {"history diff", both, "", 0,
     [](Session &s, const World &) {
         return s.app.selectedHistoryRevisionChanged();
     }},
    {"archives", both, "Archives Failed", tool | folder,
     [](Session &s, const World &) {
         return s.app.loadArchives();
     }},
    {"incoming", svn, "Incoming Failed", tool | folder,
     [](Session &s, const World &) {
         return s.app.incoming.loadIncoming();
     }},
    {"language shares", both, "", 0,
     [](Session &s, const World &) {
         s.app.selectedTab = WorkflowTab::configuration;
         return s.app.tabChanged();
     }},
};

const Row changing[] = {
    {"commit", both, "Commit Failed", tool | folder | writableFolder | disk,
     [](Session &s, const World &) {
         s.app.commitMessage = u"caf\u00e9"_s;
         s.app.setCommitSelection(s.app.changes, true);
         return s.app.commitSelected();
     }},
    {"revert", both, "Revert Failed", tool | folder | writableFolder | disk,
     [](Session &s, const World &) {
         return s.app.revertAllPaths();
     }},
    {"revert one", git, "Revert Failed", tool | folder | writableFolder | disk,
     [](Session &s, const World &) {
         return s.app.revertPath(u"kept.txt"_s);
     }},
    {"typed command", svn, "svn propset Failed", tool | folder | writableFolder | disk,
     [](Session &s, const World &) {
         answer(s, {{u"arguments"_s, u"propset a b kept.txt"_s}});
         return s.app.svnProgram.runCustomSVNCommand();
     }},
};

const Row others[] = {
    {"delete unversioned", both, "(Revert|Status) Failed", tool | folder | writableFolder,
     [](Session &s, const World &) {
         return s.app.revertPath(u"new.txt"_s);
     }},
    {"ignore", both, "(Ignore|Status) Failed", tool | folder | writableFolder | disk,
     [](Session &s, const World &) {
         tick(s, u"new.txt"_s);
         return s.app.ignoreSelectedPaths();
     }},
    {"add", both, "Add Failed", tool | folder | writableFolder | disk,
     [](Session &s, const World &) {
         tick(s, u"new.txt"_s);
         return s.app.actions.addSelectedPaths();
     }},
    {"delete", both, "Delete Failed", tool | folder | writableFolder | disk,
     [](Session &s, const World &world) {
         tick(s, world.kind == RepositoryKind::svn ? u"folder"_s : u"kept.txt"_s);
         return s.app.actions.deleteSelectedPaths();
     }},
    {"move", both, "Move Failed", tool | folder | writableFolder | disk,
     [](Session &s, const World &) {
         answer(s, {{u"source"_s, u"folder"_s}, {u"destination"_s, u"moved folder"_s}});
         return s.app.actions.moveItem();
     }},
    {"update", svn, "Update Failed", tool | folder | writableFolder | disk,
     [](Session &s, const World &) {
         return s.app.actions.updateWorkingCopy();
     }},
    {"clean up", svn, "Clean Up Failed", tool | folder | writableFolder | disk,
     [](Session &s, const World &) {
         return s.app.actions.cleanUp();
     }},
    {"set property", svn, "Set Property Failed", tool | folder | writableFolder | disk,
     [](Session &s, const World &) {
         answer(s, {{u"name"_s, u"note"_s}, {u"value"_s, u"y"_s}, {u"path"_s, u"kept.txt"_s}});
         return s.app.actions.setProperty();
     }},
    {"blame", both, "Blame Failed", tool | folder,
     [](Session &s, const World &) {
         answer(s, {{u"path"_s, u"folder/inner.txt"_s}, {u"target"_s, u"folder/inner.txt"_s}});
         return s.app.actions.showBlame();
     }},
    {"switch branch", git, "Switch Branch Failed", tool | folder | writableFolder | disk,
     [](Session &s, const World &) {
         s.user.chosenBranch = SwitchTarget{u"other"_s};
         tick(s, u"new.txt"_s);
         return s.app.switchURLOrBranch();
     }},
    {"rollback", both, "Rollback Failed", tool | folder | writableFolder | disk,
     [](Session &s, const World &) {
         return s.app.rollbackSelectedRevision();
     }},
};

const Row elsewhere[] = {
    {"export file", both, "Export File Failed", tool | folder,
     [](Session &s, const World &world) {
         answer(s, {{u"path"_s, u"kept.txt"_s},
                    {u"revision"_s, world.kind == RepositoryKind::svn ? u"2"_s : u"HEAD~1"_s}});
         s.user.chosenSaveFile = world.path(u"out/kept.txt"_s);
         return s.app.exportFileAtRevision();
     }},
    {"archive", both, "Create Archive Zip Failed", tool | folder | disk,
     [](Session &s, const World &world) {
         s.user.chosenSaveFile = world.path(u"out/a.zip"_s);
         return s.app.createArchiveZip();
     }},
    {"create repository", svn, "Create SVN Repository Failed", tool | disk,
     [](Session &s, const World &world) {
         s.user.chosenNewFolder = world.path(u"out/made"_s);
         return s.app.setup.createSVNRepository();
     }},
    {"checkout", both, "Checkout Failed", tool | disk,
     [](Session &s, const World &world) {
         s.user.chosenDirectory = world.path(u"out"_s);
         const QString url = repositoryURL(world);
         s.user.promptAnswers = {QMap<QString, QString>{{u"url"_s, url}},
                                 QMap<QString, QString>{{u"name"_s, u"copy"_s}}};
         return s.app.setup.checkoutRepository();
     }},
    {"import", svn, "Import Failed", tool | disk,
     [](Session &s, const World &world) {
         s.user.chosenDirectory = world.path(u"import"_s);
         answer(s, {{u"url"_s, repositoryURL(world) + u"/new"_s}, {u"message"_s, u"m"_s}});
         return s.app.setup.importDirectory();
     }},
    {"export", svn, "Export Failed", tool | folder | disk,
     [](Session &s, const World &world) {
         s.user.chosenDirectory = world.path(u"out"_s);
         s.user.promptAnswers = {QMap<QString, QString>{{u"source"_s, repositoryURL(world)}},
                                 QMap<QString, QString>{{u"name"_s, u"copy"_s}}};
         return s.app.setup.exportRepository();
     }},
    {"language rule", svn, "Preferences Not Saved", preferencesFile | disk,
     [](Session &s, const World &) {
         s.app.languageRules.addCustomLanguageRule();
         return s.app.openFinder();
     }},
    {"chosen executable", svn, "Preferences Not Saved", preferencesFile | disk,
     [](Session &s, const World &world) {
         s.user.chosenFile = world.tools.path(u"bin/svn"_s);
         return s.app.svnProgram.setSVNExecutable();
     }},
    {"remove project", svn, "Preferences Not Saved", preferencesFile | disk,
     [](Session &s, const World &) {
         return s.app.removeSelectedProject();
     }},
};

} // namespace

QList<Family> allFamilies() {
    QList<Row> rows(std::begin(loading), std::end(loading));
    rows.append(QList<Row>(std::begin(changing), std::end(changing)));
    // Each takes as long as all other tests of an operation together.
    if (qEnvironmentVariableIsSet("KESTOR_ALL_FAULTS")) {
        rows.append(QList<Row>(std::begin(others), std::end(others)));
        rows.append(QList<Row>(std::begin(elsewhere), std::end(elsewhere)));
    }
    QList<Family> families;
    for (const Row &row : std::as_const(rows)) {
        for (const RepositoryKind kind : {RepositoryKind::svn, RepositoryKind::git}) {
            if ((row.kinds & (kind == RepositoryKind::svn ? svn : git)) != 0)
                families.append({QString::fromLatin1(row.name) + u' ' + rawValue(kind).toString(), kind,
                                 QString::fromLatin1(row.alert), row.needs, row.start});
        }
    }
    return families;
}

} // namespace kestor::testing
