#include "world.h"

#include "support/lists.h"

#include <QFile>
#include <QStandardPaths>

#include <filesystem>

using namespace Qt::StringLiterals;

namespace kestor::testing {

namespace {

namespace fs = std::filesystem;

void copyContents(const QString &from, const QString &to) {
    for (const fs::directory_entry &entry : fs::directory_iterator(to.toStdString()))
        fs::remove_all(entry.path());
    fs::copy(from.toStdString(), to.toStdString(), fs::copy_options::recursive | fs::copy_options::copy_symlinks);
}

QStringList namesOf(const WorkingCopyItems &items) {
    QStringList all;
    for (const WorkingCopyItem &item : items)
        all.append(shortName(item.kind) + u' ' + item.path);
    return all;
}

/// Behaves as FAULT says in the run whose number is FAULT_AT, in every one for "all", and else as the real tool.
constexpr const char *toolScript = R"(#!/bin/sh
here=${0%/bin/*}
{ echo x >> $here/runs; } 2> /dev/null
case $FAULT_AT in all) ;; $(wc -l < $here/runs)) ;; *) exec REAL "$@" ;; esac
flood() { head -c 300000 /dev/zero | tr '\0' e >&2; }
case $FAULT in
silent) exit 1 ;;
killed) kill -KILL $$ ;;
noisy) flood; printf 'caf\351 \377\376\n' >&2; exit 1 ;;
odd)
    cp $0 $0.$$; mv $0.$$ $0; flood
    REAL "$@" > $here/$$.out; status=$?; LC_ALL=C sed 's/\xc3\xa9/\xe9/g' $here/$$.out; exit $status ;;
gone) rm -f $0; exec REAL "$@" ;;
hostile) [ "$1" = status ] && exec cat $here/status; exec REAL "$@" ;;
*) exec REAL "$@" ;;
esac
)";

constexpr const char *longText = "a line that is longer than what a full disk still takes\n";

} // namespace

World::World(RepositoryKind repositoryKind, const char *preparation)
    : svn(repositoryKind == RepositoryKind::svn ? std::make_unique<SvnFixture>() : nullptr),
      git(svn ? nullptr : std::make_unique<GitFixture>()), kind(repositoryKind), live(svn ? svn->tree : git->tree) {
    fill();
    qputenv("HOME", QFile::encodeName(path(u"home"_s)));
    qputenv("XDG_DATA_HOME", QFile::encodeName(path(u"home/data"_s)));
    qputenv("TMPDIR", QFile::encodeName(path(u"tmp"_s)));
    runTool(u"sh"_s, {u"-ec"_s, QString::fromLatin1(preparation)}, path(u"wc"_s));
    rows(); // makes svn's own folder in the home
    copyContents(live.path(), original.path());
    repairTools();
    qputenv("PATH", QFile::encodeName(tools.path(u"bin"_s)) + ":/usr/local/bin:/usr/bin:/bin");
}

World::~World() {
    qputenv("TMPDIR", "/tmp");
    qputenv("PATH", "/usr/local/bin:/usr/bin:/bin");
}

void World::fill() {
    const auto commit = [this](const QString &message, std::initializer_list<WrittenFile> files) {
        live.writeAll(files);
        svn ? svn->commitAll(message) : git->commitAll(message);
    };
    commit(u"first caf\u00e9"_s, {{u"wc/kept.txt"_s, "one\n"},
                                  {u"wc/long.txt"_s, longText},
                                  {u"wc/caf\u00e9.txt"_s, "caf\303\251\n"},
                                  {u"wc/gone.txt"_s, "gone\n"},
                                  {u"wc/folder/inner.txt"_s, "inner\n"}});
    commit(u"second"_s, {{u"wc/kept.txt"_s, "two\n"}, {u"wc/long.txt"_s, QByteArray(longText) + longText}});
    if (git)
        git->git(u"branch|other"_list);
    commit(u"third"_s, {{u"wc/late.txt"_s, longText}});
    if (svn) {
        svn->svn(u"mkdir|-m|fourth"_list + QStringList(url() + u"/incoming"_s));
        svn->svn(u"propset|note|x|folder"_list);
    } else {
        git->git(u"clone|-q|--bare|.|../repo.git"_list);
    }
    live.writeAll({{u"wc/kept.txt"_s, "mine\n"},
                   {u"wc/caf\u00e9.txt"_s, "my caf\303\251\n"},
                   {u"wc/folder/inner.txt"_s, "mine\n"},
                   {u"wc/folder/junk.o"_s, "junk\n"},
                   {u"wc/new.txt"_s, "new\n"},
                   {u"wc/new/deep.txt"_s, "deep\n"},
                   {u"outside/precious.txt"_s, "precious\n"},
                   {u"out/a.txt"_s, "a\n"},
                   {u"preferences/test.conf"_s, "[General]\nold=kept\n"}});
    QFile::remove(path(u"wc/gone.txt"_s));
    QFile::link(u"../outside"_s, path(u"wc/leaving"_s));
    live.makeDirectory(u"home/data"_s);
    live.makeDirectory(u"tmp"_s);
}

void World::repairTools() {
    for (const QString &tool : u"svn|svnadmin|git"_list) {
        const QByteArray real = QFile::encodeName(QStandardPaths::findExecutable(tool, {u"/usr/bin"_s}));
        tools.write(u"bin/"_s + tool, QByteArray(toolScript).replace("REAL", real));
        QFile::setPermissions(tools.path(u"bin/"_s + tool), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
}

void World::reset() {
    copyContents(original.path(), live.path());
    if (git)
        git->git(u"status"_list); // knows the copies for what they are
    tools.write(u"runs"_s, QByteArray());
    repairTools();
}

QStringList World::rows() const {
    const QString tool = u"/usr/bin/"_s + rawValue(kind).toString();
    const QByteArray printed = runTool(tool, statusArguments(kind), path(u"wc"_s));
    return namesOf(statusRows(kind, printed, *foldersReadAhead(kind, path(u"wc"_s), {})).items);
}

QString World::url() const {
    return u"file://"_s + path(svn ? u"repo/trunk"_s : u"repo.git"_s);
}

QMap<QString, QByteArray> World::files() const {
    QMap<QString, QByteArray> all;
    for (const QString &folder : u"wc|outside|out"_list) {
        for (const QString &entry : live.entries(folder))
            all.insert(folder + u'/' + entry, entry.endsWith(u".zip"_s) ? "a zip" : live.read(folder + u'/' + entry));
    }
    return all;
}

Session::Session(const World &world)
    : settings(world.path(u"preferences/test.conf"_s), QSettings::IniFormat),
      app(settings, user, systemTools(settings)), project{QUuid(u"7d2f1c54-0d4b-4b8e-9f7a-0123456789ab"_s), u"wc"_s,
                                                          world.path(u"wc"_s), world.kind} {
    user.promptAnswer = u"path=long.txt|source=folder|target=moved|name=copy|value=y"_answer;
    user.promptAnswer->insert(u"arguments"_s, u"propset a b long.txt"_s);
    user.promptAnswer->insert(u"revision"_s, world.kind == RepositoryKind::svn ? u"2"_s : u"HEAD~2"_s);
    user.promptAnswer->insert(u"url"_s, world.url());
    user.chosenDirectory = world.path(u"out"_s);
    user.chosenNewFolder = world.path(u"out/made"_s);
    user.chosenSaveFile = world.path(u"out/saved"_s);
    user.chosenFile = world.tools.path(u"bin/svn"_s);
    user.chosenBranch = SwitchTarget{u"other"_s};
    app.projects = QList<Project>{project};
    app.selectedProjectID = project.id;
    app.commitMessage = u"caf\u00e9"_s;
}

void Session::show(const Session &loaded) {
    app.changes = loaded.app.changes.value();
    app.changesLoaded = true;
    app.gitFacts = loaded.app.gitFacts;
    app.selectedChangeID = loaded.app.selectedChangeID.value();
    app.setCommitSelection(MarkedPaths::all(app.changes), true);
    app.repositoryInfo = loaded.app.repositoryInfo.value();
    app.fileHistoryItems = loaded.app.fileHistoryItems.value();
    app.logEntries = loaded.app.logEntries.value();
    app.historyLoaded = true;
    app.selectedHistoryPath = loaded.app.selectedHistoryPath.value();
    app.selectedRevision = loaded.app.selectedRevision.value();
    app.archiveEntries = loaded.app.archiveEntries.value();
    app.selectedArchiveEntryID = app.archiveEntries.value().first().revision;
}

QStringList Session::rows() const {
    return namesOf(app.changes);
}

} // namespace kestor::testing
