#include "support/awaited.h"
#include "support/temp_tree.h"
#include "support/test.h"
#include "support/without_privileges.h"
#include "tools/archive_zip_client.h"
#include "tools/arguments.h"
#include "tools/zip_writer.h"

#include <QThreadPool>

#include <algorithm>
#include <clocale>
#include <fcntl.h>
#include <sys/stat.h>

namespace kestor {
namespace {

/// Everything below a folder with its kind, permissions and time, links with their targets.
QList<QByteArray> listing(const QString &folder) {
    const QStringList links = args("(", "-type", "l", "-printf", "%P -> %l\\n", ")");
    const QStringList others = args("-o", "-printf", "%P %y %m %Ts\\n");
    QList<QByteArray> lines = runTool(u"find"_s, args(".") + links + others, folder).split('\n');
    std::sort(lines.begin(), lines.end());
    return lines;
}

TEST(Zip, KeepsWhatAFolderIs) {
    TempTree tree;
    const QByteArray large = QByteArray("0123456789abcdef").repeated(100000);
    tree.writeAll({{u"src/größe/ä ö.txt"_s, "content\n"}, {u"src/large"_s, large}, {u"src/.hidden"_s, "h"}});
    tree.makeDirectory(u"src/empty"_s);
    QFile::link(u"../outside"_s, tree.path(u"src/link"_s));
    const auto setUp = [&](const QString &name, mode_t mode) {
        const QByteArray path = QFile::encodeName(tree.path(name));
        const timespec times[2] = {{.tv_sec = 1600000001, .tv_nsec = 0}, {.tv_sec = 1600000001, .tv_nsec = 0}};
        ::chmod(path.constData(), mode);
        ::utimensat(AT_FDCWD, path.constData(), times, AT_SYMLINK_NOFOLLOW);
    };
    setUp(u"src/größe/ä ö.txt"_s, 0755);
    setUp(u"src/large"_s, 0600);
    setUp(u"src/.hidden"_s, 0444);
    setUp(u"src/empty"_s, 0700);
    setUp(u"src/größe"_s, 0755);
    setUp(u"src"_s, 0755);
    const QList<QByteArray> expected = listing(tree.path(u"src"_s));
    ::mkfifo(QFile::encodeName(tree.path(u"src/pipe"_s)).constData(), 0600);
    setUp(u"src"_s, 0755);

    ArchiveZipClient client(u"/nowhere/ditto"_s);
    const QString target = tree.path(u"out/it's.zip"_s);
    tree.makeDirectory(u"out"_s);
    // The names do not depend on the locale of the program.
    std::setlocale(LC_CTYPE, "C");
    const SVNCommandResult result = awaited(client.zipDirectoryKeepingParent(tree.path(u"src/"_s), target));
    std::setlocale(LC_CTYPE, "C.UTF-8");
    EXPECT_EQ(result.commandLine, uR"(zip (libarchive) %1/src/ '%1/out/it'\''s.zip')"_s.arg(tree.path()));
    runTool(u"cmake"_s, args("-E", "tar", "xf", target), tree.path(u"out"_s));
    EXPECT_EQ(listing(tree.path(u"out/src"_s)), expected);
    EXPECT_EQ(tree.read(u"out/src/größe/ä ö.txt"_s), "content\n");
    EXPECT_EQ(tree.read(u"out/src/large"_s), large);
}

TEST(Zip, NeverHoldsItself) {
    TempTree tree;
    tree.write(u"src/file"_s);
    QFile::link(tree.path(u"src"_s), tree.path(u"alias"_s));
    for (int round = 0; round < 2; ++round) { // the second time the zip exists already
        EXPECT_EQ(writeZip(tree.path(u"alias"_s), tree.path(u"src/out.zip"_s), {}), QString());
        EXPECT_EQ(runTool(u"cmake"_s, args("-E", "tar", "tf", "src/out.zip"), tree.path()), "alias/\nalias/file\n");
    }
}

/// The description of a zip that fails.
QString failureOf(const QString &source, const QString &destination) {
    ArchiveZipClient client(u"/nowhere/ditto"_s);
    try {
        awaited(client.zipDirectoryKeepingParent(source, destination));
    } catch (const SVNClientError &error) {
        EXPECT_TRUE(error.failedResult() != nullptr && error.failedResult()->status == 1);
        return error.errorDescription();
    }
    return {};
}

TEST(Zip, FailureSaysWhyAndLeavesTheOlderFileAlone) {
    TempTree tree;
    tree.writeAll({{u"unreadable/a"_s},
                   {u"unreadable/secret"_s},
                   {u"closed/folder/a"_s},
                   {u"plain"_s},
                   {u"out/old.zip"_s, "old"},
                   {u"locked/none"_s}});
    const auto allow = [&](const QString &name, mode_t mode) {
        ::chmod(QFile::encodeName(tree.path(name)).constData(), mode);
    };
    allow({}, 0755);
    allow(u"out"_s, 0777);
    allow(u"out/old.zip"_s, 0666);
    allow(u"unreadable/secret"_s, 0);
    allow(u"closed/folder"_s, 0);
    allow(u"locked"_s, 0555);
    const QString out = u"out/old.zip"_s;
    const QString denied = u": Permission denied"_s;
    const Rows<QString, QString, QString> rows{
        {"file", u"unreadable"_s, out, u"Could not read %1"_s.arg(tree.path(u"unreadable/secret"_s)) + denied},
        {"folder", u"closed"_s, out, u"Could not read %1"_s.arg(tree.path(u"closed/folder"_s)) + denied},
        {"not a folder", u"plain"_s, out, u"Could not read %1: It is not a folder."_s.arg(tree.path(u"plain"_s))},
        {"destination", u"out"_s, u"locked/x.zip"_s,
         u"Could not write %1"_s.arg(tree.path(u"locked/x.zip"_s)) + denied},
    };
    const WithoutPrivileges asOrdinaryUser;
    for (const auto &[name, source, destination, failure] : rows) {
        EXPECT_EQ(failureOf(tree.path(source), tree.path(destination)), failure);
        EXPECT_EQ(tree.entries(u"out"_s), args("old.zip"));
        EXPECT_EQ(tree.read(out), "old");
    }
}

QCoro::Task<> noteFailure(ArchiveZipClient *client, QString source, QString destination, QString *failure) {
    try {
        co_await client->zipDirectoryKeepingParent(source, destination);
    } catch (const SVNClientError &error) {
        *failure = error.errorDescription();
    }
}

TEST(Zip, StopEndsTheWaitAndLeavesNothingBehind) {
    TempTree tree;
    tree.write(u"src/endless"_s, "");
    ASSERT_TRUE(QFile::resize(tree.path(u"src/endless"_s), Q_INT64_C(100'000'000'000)));
    tree.makeDirectory(u"out"_s);
    QString failure;
    {
        ArchiveZipClient client(u"/nowhere/ditto"_s);
        noteFailure(&client, tree.path(u"src"_s), tree.path(u"out/x.zip"_s), &failure);
    }
    EXPECT_EQ(failure, u"zip was stopped: The application is closing."_s);
    EXPECT_TRUE(QThreadPool::globalInstance()->waitForDone(10000));
    EXPECT_EQ(tree.entries(u"out"_s), QStringList());
}

} // namespace
} // namespace kestor
