#include "support/awaited.h"
#include "support/temp_tree.h"
#include "support/test.h"
#include "support/without_privileges.h"
#include "tools/archive_zip_client.h"
#include "tools/arguments.h"
#include "tools/zip_writer.h"

#include <QMap>
#include <QThreadPool>

#include <algorithm>
#include <archive.h>
#include <archive_entry.h>
#include <clocale>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>

namespace kestor {
namespace {

struct ZipEntry {
    uint mode = 0; ///< kind and permissions
    QByteArray content{};
    QString link{};
    qint64 modified = 0; ///< seconds; 0 when the test does not fix it
    friend bool operator==(const ZipEntry &, const ZipEntry &) = default;
};

void PrintTo(const ZipEntry &entry, std::ostream *out) {
    *out << std::oct << entry.mode << std::dec << " \"" << entry.content.left(40).constData() << "\" -> "
         << entry.link.toStdString() << " at " << entry.modified;
}

/// Everything in a zip, by name; two entries of one name fail. `order` gets the names as they stand in the zip.
QMap<QString, ZipEntry> unzipped(const QString &path, QStringList *order = nullptr) {
    QMap<QString, ZipEntry> entries;
    const std::unique_ptr<archive, decltype(&archive_read_free)> zip(archive_read_new(), &archive_read_free);
    archive_read_support_format_zip_seekable(zip.get());
    EXPECT_EQ(archive_read_open_filename(zip.get(), QFile::encodeName(path).constData(), 65536), ARCHIVE_OK)
        << archive_error_string(zip.get());
    archive_entry *entry = nullptr;
    while (archive_read_next_header(zip.get(), &entry) == ARCHIVE_OK) {
        ZipEntry read{.mode = archive_entry_mode(entry), .modified = archive_entry_mtime(entry)};
        read.link = QString::fromUtf8(archive_entry_symlink_utf8(entry));
        char block[65536];
        while (const la_ssize_t count = archive_read_data(zip.get(), block, sizeof block)) {
            EXPECT_GT(count, 0) << archive_error_string(zip.get());
            if (count < 0)
                break;
            read.content.append(block, count);
        }
        const QString name = QString::fromUtf8(archive_entry_pathname_utf8(entry));
        EXPECT_FALSE(entries.contains(name)) << name.toStdString();
        entries.insert(name, read);
        if (order != nullptr)
            order->append(name);
    }
    return entries;
}

TEST(Zip, KeepsWhatAFolderIs) {
    TempTree tree;
    const QByteArray large = QByteArray("0123456789abcdef").repeated(100000);
    tree.writeAll({{u"src/größe/ä ö.txt"_s, "content\n"},
                   {u"src/large"_s, large},
                   {u"src/empty file"_s, ""},
                   {u"src/.hidden"_s, "h"},
                   {u"outside"_s, "not in the zip"}});
    tree.makeDirectory(u"src/empty"_s);
    QFile::link(u"../outside"_s, tree.path(u"src/link"_s));
    QFile::link(u"missing"_s, tree.path(u"src/dangling"_s));
    QFile::link(u"."_s, tree.path(u"src/loop"_s));
    ::mkfifo(QFile::encodeName(tree.path(u"src/pipe"_s)).constData(), 0600);
    const auto setUp = [&](const QString &name, mode_t mode) {
        const QByteArray path = QFile::encodeName(tree.path(name));
        const timespec times[2] = {{.tv_sec = 1600000001, .tv_nsec = 0}, {.tv_sec = 1600000001, .tv_nsec = 0}};
        ::chmod(path.constData(), mode);
        ::utimensat(AT_FDCWD, path.constData(), times, AT_SYMLINK_NOFOLLOW);
    };
    setUp(u"src/größe/ä ö.txt"_s, 0755);
    setUp(u"src/large"_s, 0600);
    setUp(u"src/empty file"_s, 0644);
    setUp(u"src/.hidden"_s, 0444);
    setUp(u"src/empty"_s, 0700);
    setUp(u"src/größe"_s, 0755);
    setUp(u"src"_s, 0755);

    ArchiveZipClient client(u"/nowhere/ditto"_s);
    const QString target = tree.path(u"out it's.zip"_s);
    const SVNCommandResult result = awaited(client.zipDirectoryKeepingParent(tree.path(u"src/"_s), target));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.commandLine, uR"(zip (libarchive) %1/src/ '%1/out it'\''s.zip')"_s.arg(tree.path()));

    QMap<QString, ZipEntry> entries = unzipped(target);
    for (const QString &name : args("src/link", "src/dangling", "src/loop"))
        entries[name].modified = 0;
    const qint64 modified = 1600000001;
    const QMap<QString, ZipEntry> expected{
        {u"src/"_s, {.mode = S_IFDIR | 0755, .modified = modified}},
        {u"src/größe/"_s, {.mode = S_IFDIR | 0755, .modified = modified}},
        {u"src/größe/ä ö.txt"_s, {.mode = S_IFREG | 0755, .content = "content\n", .modified = modified}},
        {u"src/large"_s, {.mode = S_IFREG | 0600, .content = large, .modified = modified}},
        {u"src/empty file"_s, {.mode = S_IFREG | 0644, .modified = modified}},
        {u"src/.hidden"_s, {.mode = S_IFREG | 0444, .content = "h", .modified = modified}},
        {u"src/empty/"_s, {.mode = S_IFDIR | 0700, .modified = modified}},
        {u"src/link"_s, {.mode = S_IFLNK | 0777, .link = u"../outside"_s}},
        {u"src/dangling"_s, {.mode = S_IFLNK | 0777, .link = u"missing"_s}},
        {u"src/loop"_s, {.mode = S_IFLNK | 0777, .link = u"."_s}},
    };
    EXPECT_EQ(entries.keys(), expected.keys());
    EXPECT_EQ(entries, expected);
}

TEST(Zip, HasTheOrderOfTheNamesWhateverTheDisksIs) {
    TempTree tree;
    const QStringList sorted =
        args("src/", "src/-", "src/B", "src/a/", "src/a/1", "src/a/2", "src/a-b", "src/z", "src/ä");
    QStringList reversed = sorted;
    std::reverse(reversed.begin(), reversed.end());
    for (const QString &name : std::as_const(reversed)) {
        if (!name.endsWith(u'/'))
            tree.write(name);
    }
    QStringList order;
    // The names do not depend on the locale of the program.
    std::setlocale(LC_CTYPE, "C");
    EXPECT_EQ(writeZip(tree.path(u"src"_s), tree.path(u"out.zip"_s), {}), QString());
    std::setlocale(LC_CTYPE, "C.UTF-8");
    unzipped(tree.path(u"out.zip"_s), &order);
    EXPECT_EQ(order, sorted);
}

TEST(Zip, NeverHoldsItself) {
    TempTree tree;
    tree.write(u"src/file"_s);
    QFile::link(tree.path(u"src"_s), tree.path(u"alias"_s));
    for (int round = 0; round < 2; ++round) { // the second time the zip exists already
        EXPECT_EQ(writeZip(tree.path(u"alias"_s), tree.path(u"src/out.zip"_s), {}), QString());
        EXPECT_EQ(unzipped(tree.path(u"src/out.zip"_s)).keys(), args("alias/", "alias/file"));
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
        {"missing", u"none"_s, out, u"Could not read %1: It is not a folder."_s.arg(tree.path(u"none"_s))},
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

TEST(Zip, DittoIsUsedWhereItIs) {
    TempTree tree;
    tree.write(u"ditto"_s, "#!/bin/sh\nprintf '%s|' \"$@\"; exec test \"$5\" != bad");
    QFile::setPermissions(tree.path(u"ditto"_s), QFile::ReadOwner | QFile::ExeOwner);
    ArchiveZipClient client(tree.path(u"ditto"_s));
    EXPECT_EQ(awaited(client.zipDirectoryKeepingParent(u"a b"_s, u"good"_s)).stdoutData,
              "-c|-k|--keepParent|a b|good|");
    EXPECT_THROW(awaited(client.zipDirectoryKeepingParent(u"a b"_s, u"bad"_s)), SVNClientError);
}

} // namespace
} // namespace kestor
