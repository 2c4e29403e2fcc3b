#include "support/awaited.h"
#include "support/test.h"
#include "world.h"

#include <QDirIterator>
#include <QFile>

#include <unistd.h>

namespace kestor {
namespace {

/// The content of every file below a folder, also of what Git keeps.
QMap<QString, QByteArray> bytesBelow(const QString &folder) {
    QMap<QString, QByteArray> all;
    QDirIterator walk(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        QFile file(walk.next());
        all.insert(file.fileName(), file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray());
    }
    return all;
}

/// Looks at every row and then does with all of them whatever takes files away or writes them.
QStringList doEverything(Session &session) {
    AppState &app = session.app;
    awaited(app.refreshStatus());
    QStringList seen;
    for (const WorkingCopyItem &item : app.changes.value()) {
        app.selectedChangeID = item.path;
        awaited(app.selectedChangeChanged());
        seen.append(app.diffText.value());
    }
    const QList<QCoro::Task<> (*)(AppState &)> operations{
        [](AppState &a) { return a.ignoreSelectedPaths(); },
        [](AppState &a) { return a.commitSelected(); },
        [](AppState &a) { return a.actions.deleteSelectedPaths(); },
        [](AppState &a) { return a.revertAllPaths(); },
    };
    for (const auto operation : operations) {
        awaited(app.refreshStatus());
        app.commitMessage = u"all"_s;
        app.setCommitSelection(MarkedPaths::all(app.changes), true);
        awaited(operation(app));
    }
    return seen;
}

TEST(HostileRepository, PathsThatLeadOutOfItAreNeitherShownNorTouched) {
    const auto svnStatus = [](const char *path, const char *item) {
        return QByteArray("<status><target path=\".\"><entry path=\"") + path + "\"><wc-status item=\"" + item +
               "\" props=\"none\"/></entry></target></status>";
    };
    const Rows<RepositoryKind, QByteArray> rows{
        {"unversioned file above", RepositoryKind::git, "?? ../outside/precious.txt\n"},
        {"unversioned folder above", RepositoryKind::git, "?? ../outside/\n"},
        {"added file above", RepositoryKind::git, "A  ../outside/precious.txt\n"},
        {"in the middle", RepositoryKind::git, "?? folder/../../outside/precious.txt\n"},
        {"unversioned behind a link", RepositoryKind::git, "?? leaving/precious.txt\n"},
        {"added behind a link", RepositoryKind::git, "A  leaving/precious.txt\n"},
        {"changed behind a link", RepositoryKind::git, " M leaving/precious.txt\n"},
        {"renamed from above", RepositoryKind::git, "R  ../outside/precious.txt -> new.txt\n"},
        {"unversioned file above", RepositoryKind::svn, svnStatus("../outside/precious.txt", "unversioned")},
        {"added behind a link", RepositoryKind::svn, svnStatus("leaving/precious.txt", "added")},
        {"unversioned behind a link", RepositoryKind::svn, svnStatus("leaving/precious.txt", "unversioned")},
    };
    std::map<RepositoryKind, std::unique_ptr<World>> worlds;
    for (const auto &[name, kind, status] : rows) {
        std::unique_ptr<World> &world = worlds[kind];
        if (!world)
            world = std::make_unique<World>(kind);
        world->reset();
        world->tools.write(u"status"_s, status);
        qputenv("FAULT", "hostile");
        qputenv("FAULT_AT", "all");
        Session session(*world);
        EXPECT_FALSE(doEverything(session).join(u'\n').contains(u"precious\n"_s));
        EXPECT_EQ(world->live.entries(u"outside"_s), QStringList(u"precious.txt"_s));
        EXPECT_EQ(world->live.read(u"outside/precious.txt"_s), "precious\n");
    }
    qunsetenv("FAULT");
}

TEST(HostileRepository, LinksAndNamesInItStayLinksAndNames) {
    for (const RepositoryKind kind : {RepositoryKind::svn, RepositoryKind::git}) {
        SCOPED_TRACE(rawValue(kind).toString().toStdString());
        World world(kind);
        const QString target = world.path(u"outside/precious.txt"_s);
        for (const QString &link : {u"peek.txt"_s, u"peek.png"_s, u".gitignore"_s, u"new/peek.txt"_s})
            QFile::link(target, world.path(u"wc/"_s + link));
        for (const QString &name :
             {u"a;touch pwned;$(touch pwned)`touch pwned`.txt"_s, u"--config-option=x"_s, u"-m"_s})
            world.live.write(u"wc/"_s + name);
        Session session(world);
        EXPECT_FALSE(doEverything(session).join(u'\n').contains(u"precious\n"_s));
        EXPECT_EQ(world.live.read(u"outside/precious.txt"_s), "precious\n");
        EXPECT_FALSE(world.live.exists(u"wc/pwned"_s));
    }
}

TEST(HostileRepository, OpeningWhatBelongsElsewhereChangesNothingThere) {
    World world(RepositoryKind::git);
    world.live.write(u"elsewhere/.git"_s, "gitdir: ../wc/.git\n");
    const QByteArray program = "touch '" + world.path(u"outside/started"_s).toUtf8() + "'; false";
    runTool(u"git"_s, {u"config"_s, u"core.fsmonitor"_s, QString::fromUtf8(program)}, world.path(u"wc"_s));
    world.live.write(u"wc/.git/hooks/post-index-change"_s, "#!/bin/sh\n" + program);
    QFile::setPermissions(world.path(u"wc/.git/hooks/post-index-change"_s),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    const QMap<QString, QByteArray> before = bytesBelow(world.path(u"wc"_s));
    Session session(world);
    awaited(session.app.addProject(world.path(u"elsewhere"_s), RepositoryKind::git));
    awaited(session.app.loadHistory());
    EXPECT_EQ(bytesBelow(world.path(u"wc"_s)), before);
    EXPECT_FALSE(world.live.exists(u"outside/started"_s));
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can give files to another user";
    runTool(u"chown"_s, {u"-R"_s, u"65534"_s, world.path(u"wc"_s)}, world.path(u"out"_s));
    awaited(session.app.addProject(world.path(u"wc"_s), RepositoryKind::git));
    ASSERT_TRUE(session.app.alert.value());
    EXPECT_TRUE(session.app.alert.value()->message.contains(u"dubious ownership"_s));
    EXPECT_EQ(bytesBelow(world.path(u"wc"_s)), before);
}

} // namespace
} // namespace kestor
