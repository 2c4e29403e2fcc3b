#include "families.h"

using namespace Qt::StringLiterals;

namespace kestor::testing {

namespace {

using Start = QCoro::Task<> (*)(Session &session, const World &world);

enum Kinds : unsigned { svn = 1, git = 2, both = 3 };

/// The family for each kind of working copy that has it.
struct Row {
    const char *name = "";
    const char *alert = "";
    unsigned kinds = both;
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
    {"status", "Status Failed", both, tool | folder,
     [](Session &s, const World &) {
         return s.app.refreshStatus();
     }},
    {"refresh", "Status Failed", both, tool | folder,
     [](Session &s, const World &) {
         return s.app.refreshAll();
     }},
    {"selected project", "Status Failed", both, tool | folder,
     [](Session &s, const World &) {
         return s.app.projectSelectionChanged();
     }},
    {"info", "Info Failed", both, tool | folder,
     [](Session &s, const World &) {
         return s.app.showRepositoryInfo();
     }},
    {"diff", "", both, 0,
     [](Session &s, const World &) {
         return s.app.selectedChangeChanged();
     }},
    {"history", "History Failed", both, tool | folder,
     [](Session &s, const World &) {
         return s.app.loadHistory();
     }},
    {"history diff", "", both, 0,
     [](Session &s, const World &) {
         return s.app.selectedHistoryRevisionChanged();
     }},
    {"archives", "Archives Failed", both, tool | folder,
     [](Session &s, const World &) {
         return s.app.loadArchives();
     }},
    {"incoming", "Incoming Failed", svn, tool | folder,
     [](Session &s, const World &) {
         return s.app.incoming.loadIncoming();
     }},
    {"language shares", "", both, 0,
     [](Session &s, const World &) {
         s.app.selectedTab = WorkflowTab::configuration;
         return s.app.tabChanged();
     }},
};

const Row changing[] = {
    {"commit", "Commit Failed", both, tool | folder | writableFolder | disk,
     [](Session &s, const World &) {
         s.app.commitMessage = u"caf\u00e9"_s;
         s.app.setCommitSelection(s.app.changes, true);
         return s.app.commitSelected();
     }},
    {"revert", "Revert Failed", both, tool | folder | writableFolder | disk,
     [](Session &s, const World &) {
         return s.app.revertAllPaths();
     }},
    {"revert one", "Revert Failed", git, tool | folder | writableFolder | disk,
     [](Session &s, const World &) {
         return s.app.revertPath(u"kept.txt"_s);
     }},
    {"typed command", "svn propset Failed", svn, tool | folder | writableFolder | disk,
     [](Session &s, const World &) {
         answer(s, {{u"arguments"_s, u"propset a b kept.txt"_s}});
         return s.app.svnProgram.runCustomSVNCommand();
     }},
};

const Row others[] = {
    {"delete unversioned", "Revert Failed", both, tool | folder | writableFolder,
     [](Session &s, const World &) {
         return s.app.revertPath(u"new.txt"_s);
     }},
    {"ignore", "(Ignore|Status) Failed", both, tool | folder | writableFolder | disk,
     [](Session &s, const World &) {
         tick(s, u"new.txt"_s);
         return s.app.ignoreSelectedPaths();
     }},
    {"add", "Add Failed", both, tool | folder | writableFolder | disk,
     [](Session &s, const World &) {
         tick(s, u"new.txt"_s);
         return s.app.actions.addSelectedPaths();
     }},
    {"delete", "Delete Failed", both, tool | folder | writableFolder | disk,
     [](Session &s, const World &world) {
         tick(s, world.kind == RepositoryKind::svn ? u"folder"_s : u"kept.txt"_s);
         return s.app.actions.deleteSelectedPaths();
     }},
    {"move", "Move Failed", both, tool | folder | writableFolder | disk,
     [](Session &s, const World &) {
         answer(s, {{u"source"_s, u"folder"_s}, {u"destination"_s, u"moved folder"_s}});
         return s.app.actions.moveItem();
     }},
    {"update", "Update Failed", svn, tool | folder | writableFolder | disk,
     [](Session &s, const World &) {
         return s.app.actions.updateWorkingCopy();
     }},
    {"clean up", "Clean Up Failed", svn, tool | folder | writableFolder | disk,
     [](Session &s, const World &) {
         return s.app.actions.cleanUp();
     }},
    {"set property", "Set Property Failed", svn, tool | folder | writableFolder | disk,
     [](Session &s, const World &) {
         answer(s, {{u"name"_s, u"note"_s}, {u"value"_s, u"y"_s}, {u"path"_s, u"kept.txt"_s}});
         return s.app.actions.setProperty();
     }},
    {"blame", "Blame Failed", both, tool | folder,
     [](Session &s, const World &) {
         answer(s, {{u"path"_s, u"folder/inner.txt"_s}, {u"target"_s, u"folder/inner.txt"_s}});
         return s.app.actions.showBlame();
     }},
    {"switch branch", "Switch Branch Failed", git, tool | folder | writableFolder | disk,
     [](Session &s, const World &) {
         s.user.chosenBranch = SwitchTarget{u"other"_s};
         tick(s, u"new.txt"_s);
         return s.app.switchURLOrBranch();
     }},
    {"rollback", "Rollback Failed", both, tool | folder | writableFolder | disk,
     [](Session &s, const World &) {
         return s.app.rollbackSelectedRevision();
     }},
};

const Row elsewhere[] = {
    {"export file", "Export File Failed", both, tool | folder,
     [](Session &s, const World &world) {
         answer(s, {{u"path"_s, u"kept.txt"_s},
                    {u"revision"_s, world.kind == RepositoryKind::svn ? u"2"_s : u"HEAD~1"_s}});
         s.user.chosenSaveFile = world.path(u"out/kept.txt"_s);
         return s.app.exportFileAtRevision();
     }},
    {"archive", "Create Archive Zip Failed", both, tool | folder | disk,
     [](Session &s, const World &world) {
         s.user.chosenSaveFile = world.path(u"out/a.zip"_s);
         return s.app.createArchiveZip();
     }},
    {"create repository", "Create SVN Repository Failed", svn, tool | disk,
     [](Session &s, const World &world) {
         s.user.chosenNewFolder = world.path(u"out/made"_s);
         return s.app.setup.createSVNRepository();
     }},
    {"checkout", "Checkout Failed", both, tool | disk,
     [](Session &s, const World &world) {
         s.user.chosenDirectory = world.path(u"out"_s);
         const QString url = repositoryURL(world);
         s.user.promptAnswers = {QMap<QString, QString>{{u"url"_s, url}},
                                 QMap<QString, QString>{{u"name"_s, u"copy"_s}}};
         return s.app.setup.checkoutRepository();
     }},
    {"import", "Import Failed", svn, tool | disk,
     [](Session &s, const World &world) {
         s.user.chosenDirectory = world.path(u"import"_s);
         answer(s, {{u"url"_s, repositoryURL(world) + u"/new"_s}, {u"message"_s, u"m"_s}});
         return s.app.setup.importDirectory();
     }},
    {"export", "Export Failed", svn, tool | folder | disk,
     [](Session &s, const World &world) {
         s.user.chosenDirectory = world.path(u"out"_s);
         s.user.promptAnswers = {QMap<QString, QString>{{u"source"_s, repositoryURL(world)}},
                                 QMap<QString, QString>{{u"name"_s, u"copy"_s}}};
         return s.app.setup.exportRepository();
     }},
    {"language rule", "Preferences Not Saved", svn, preferencesFile | disk,
     [](Session &s, const World &) {
         s.app.languageRules.addCustomLanguageRule();
         return s.app.openFinder();
     }},
    {"chosen executable", "Preferences Not Saved", svn, preferencesFile | disk,
     [](Session &s, const World &world) {
         s.user.chosenFile = world.tools.path(u"bin/svn"_s);
         return s.app.svnProgram.setSVNExecutable();
     }},
    {"remove project", "Preferences Not Saved", svn, preferencesFile | disk,
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
