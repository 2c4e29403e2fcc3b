#include "world.h"

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

QStringList namesOf(const QList<WorkingCopyItem> &items) {
    QStringList all;
    for (const WorkingCopyItem &item : items)
        all.append(shortName(item.kind) + u' ' + item.path);
    return all;
}

/// Behaves as FAULT says in the run whose number is FAULT_AT, in every one for "all", and else as the real tool.
constexpr const char *toolScript = R"(#!/bin/sh
here=${0%/bin/*}
echo x >> $here/runs
run=$(wc -l < $here/runs)
flood() { head -c 300000 /dev/zero | tr '\0' e >&2; }
[ "$FAULT_AT" = all ] || [ "$FAULT_AT" = $run ] || exec REAL "$@"
case $FAULT in
silent) exit 1 ;;
killed) kill -KILL $$ ;;
flood) flood; exec REAL "$@" ;;
flood-and-fail) flood; exit 1 ;;
latin1) REAL "$@" > $here/$$.out; status=$?; LC_ALL=C sed 's/\xc3\xa9/\xe9/g' $here/$$.out; exit $status ;;
invalid-and-fail) printf 'caf\351 \377\376\n' >&2; exit 1 ;;
replaced) cp $0 $0.$$; mv $0.$$ $0; exec REAL "$@" ;;
hostile) [ "$1" = status ] && exec cat $here/status; exec REAL "$@" ;;
gone) rm -f $0; exec REAL "$@" ;;
*) exec REAL "$@" ;;
esac
)";

} // namespace

World::World(RepositoryKind repositoryKind) : kind(repositoryKind) {
    if (kind == RepositoryKind::svn)
        fixture.emplace<SvnFixture>();
    else
        fixture.emplace<GitFixture>();
    fill();
    qputenv("HOME", QFile::encodeName(path(u"home"_s)));
    qputenv("XDG_DATA_HOME", QFile::encodeName(path(u"home/data"_s)));
    qputenv("TMPDIR", QFile::encodeName(path(u"tmp"_s)));
    rows(); // makes svn's own folder in the home
    copyContents(live().path(), original.path());
    tools.makeDirectory(u"bin"_s);
    repairTools();
    qputenv("PATH", QFile::encodeName(tools.path(u"bin"_s)) + ":/usr/local/bin:/usr/bin:/bin");
}

World::~World() {
    qputenv("TMPDIR", "/tmp");
    qputenv("PATH", "/usr/local/bin:/usr/bin:/bin");
}

const TempTree &World::live() const {
    if (kind == RepositoryKind::svn)
        return std::get<SvnFixture>(fixture).tree;
    return std::get<GitFixture>(fixture).tree;
}

TempTree &World::live() {
    return const_cast<TempTree &>(std::as_const(*this).live());
}

void World::fill() {
    const QList<std::pair<QString, QByteArray>> committed{{u"kept.txt"_s, "one\n"},
                                                          {u"caf\u00e9.txt"_s, "caf\303\251\n"},
                                                          {u"gone.txt"_s, "gone\n"},
                                                          {u"folder/inner.txt"_s, "inner\n"}};
    TempTree &tree = live();
    for (const auto &[name, content] : committed)
        tree.write(u"wc/"_s + name, content);
    const QString first = u"first caf\u00e9"_s;
    if (auto *svn = std::get_if<SvnFixture>(&fixture)) {
        svn->commitAll(first);
        svn->write(u"kept.txt"_s, "two\n");
        svn->commitAll(u"second"_s);
        svn->svn({u"mkdir"_s, u"-m"_s, u"third"_s, u"file://"_s + tree.path(u"repo/trunk/incoming"_s)});
        svn->svn({u"propset"_s, u"note"_s, u"x"_s, u"folder"_s});
    } else if (auto *git = std::get_if<GitFixture>(&fixture)) {
        git->commitAll(first);
        git->git({u"branch"_s, u"other"_s});
        git->write(u"kept.txt"_s, "two\n");
        git->commitAll(u"second"_s);
    }
    const QList<std::pair<QString, QByteArray>> others{{u"wc/kept.txt"_s, "mine\n"},
                                                       {u"wc/caf\u00e9.txt"_s, "my caf\303\251\n"},
                                                       {u"wc/folder/inner.txt"_s, "mine\n"},
                                                       {u"wc/folder/junk.o"_s, "junk\n"},
                                                       {u"wc/new.txt"_s, "new\n"},
                                                       {u"wc/new/deep.txt"_s, "deep\n"},
                                                       {u"outside/precious.txt"_s, "precious\n"},
                                                       {u"import/a.txt"_s, "a\n"},
                                                       {u"preferences/test.conf"_s, "[General]\nold=kept\n"}};
    for (const auto &[name, content] : others)
        tree.write(name, content);
    QFile::remove(path(u"wc/gone.txt"_s));
    QFile::link(u"../outside"_s, path(u"wc/leaving"_s));
    for (const QString &folder : {u"home/data"_s, u"tmp"_s, u"out"_s})
        tree.makeDirectory(folder);
}

void World::repairTools() {
    for (const QString &tool : {u"svn"_s, u"svnadmin"_s, u"git"_s}) {
        const QByteArray real = QFile::encodeName(QStandardPaths::findExecutable(tool, {u"/usr/bin"_s}));
        tools.write(u"bin/"_s + tool, QByteArray(toolScript).replace("REAL", real));
        QFile::setPermissions(tools.path(u"bin/"_s + tool), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
}

void World::reset() {
    copyContents(original.path(), live().path());
    tools.write(u"runs"_s, QByteArray());
    repairTools();
}

QStringList World::rows() const {
    const QString tool = u"/usr/bin/"_s + rawValue(kind).toString();
    const QByteArray printed = runTool(tool, statusArguments(kind), path(u"wc"_s));
    return namesOf(statusRows(kind, path(u"wc"_s), printed).items);
}

QMap<QString, QByteArray> World::files() const {
    QMap<QString, QByteArray> all;
    for (const QString &folder : {u"wc/"_s, u"outside/"_s, u"import/"_s, u"out/"_s}) {
        for (const QString &entry : live().entries(folder.chopped(1)))
            all.insert(folder + entry, entry.endsWith(u".zip"_s) ? "a zip" : live().read(folder + entry));
    }
    return all;
}

Session::Session(const World &world)
    : settings(world.path(u"preferences/test.conf"_s), QSettings::IniFormat),
      app(settings, user, systemTools(settings)), project{QUuid(u"7d2f1c54-0d4b-4b8e-9f7a-0123456789ab"_s), u"wc"_s,
                                                          world.path(u"wc"_s), world.kind} {
    app.projects = QList<Project>{project};
    app.selectedProjectID = project.id;
}

void Session::show(const Session &loaded) {
    app.changes = loaded.app.changes.value();
    app.changesLoaded = true;
    app.gitFacts = loaded.app.gitFacts;
    app.selectedChangeID = loaded.app.selectedChangeID.value();
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
