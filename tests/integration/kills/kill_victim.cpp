// Starts the controller over ROOT/wc as the program does and performs one operation again and again until it is killed.
// Usage: kill_victim OPERATION svn|git ROOT

#include "controller/app_state.h"
#include "support/awaited.h"
#include "support/scripted_user.h"
#include "tools/temporary_folder.h"

#include <QCoreApplication>
#include <QFile>
#include <QSettings>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace kestor {
namespace {

using testing::awaited;

class Victim {
public:
    Victim(const QString &folder, RepositoryKind kind)
        : root(folder), settings(root + u"/preferences/test.conf"_s, QSettings::IniFormat),
          app(settings, user, systemTools(settings)) {
        user.chosenSaveFile = root + u"/out/a.zip"_s;
        app.addProject(root + u"/wc"_s, kind);
        awaited(app.refreshStatus());
        awaited(app.loadArchives());
        app.selectedArchiveEntryID = app.archiveEntries.value().first().revision;
    }

    void perform(const QString &operation);

private:
    /// An unversioned file and a changed one, as rows.
    QString change();
    /// Appends, so that all that was ever made can be looked for after the kill.
    void write(const QString &path, const QByteArray &content) const {
        QFile file(root + u'/' + path);
        if (!file.open(QIODevice::Append) || file.write(content) != content.size())
            qFatal("cannot write %s", qPrintable(path));
    }

    QString root;
    QSettings settings;
    testing::ScriptedUser user{};
    AppState app;
    int made = 0;
};

QString Victim::change() {
    const QString name = u"new-%1-%2.txt"_s.arg(QCoreApplication::applicationPid()).arg(++made);
    write(u"wc/"_s + name, "new\n");
    write(u"made"_s, name.toUtf8() + '\n');
    write(u"wc/kept.txt"_s, "more\n");
    awaited(app.refreshStatus());
    return name;
}

void Victim::perform(const QString &operation) {
    if (operation == u"archive")
        return awaited(app.createArchiveZip());
    if (operation == u"preferences") {
        app.languageRules.addCustomLanguageRule();
        return awaited(app.addProject(root + u"/project-%1"_s.arg(++made), RepositoryKind::git));
    }
    const QString name = change();
    if (operation == u"commit") {
        app.commitMessage = name;
        app.setCommitSelection(MarkedPaths::all(app.changes), true);
        return awaited(app.commitSelected());
    }
    if (operation == u"revert")
        return awaited(app.revertAllPaths());
    app.setCommitSelection(MarkedPaths::all(app.changes), false);
    app.selectedChangeID = u"kept.txt"_s;
    awaited(app.actions.deleteSelectedPaths());
    awaited(app.revertAllPaths());
}

} // namespace
} // namespace kestor

int main(int argc, char **argv) try {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    kestor::removeAbandonedFolders();
    kestor::Victim victim(arguments[3],
                          arguments[2] == u"git" ? kestor::RepositoryKind::git : kestor::RepositoryKind::svn);
    std::puts("ready");
    std::fflush(stdout);
    for (;;)
        victim.perform(arguments[1]);
} catch (...) {
    return 1;
}
