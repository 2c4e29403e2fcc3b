#include "controller/new_folders.h"
#include "controller/repository_addresses.h"
#include "support/printers.h"
#include "support/temp_tree.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kestor {
namespace {

using testing::TempTree;

TEST(RepositoryAddresses, SayTheirToolAndOfferAName) {
    struct Row {
        QString url;
        RepositoryKind kind;
        QString name;
    };
    const Row rows[] = {
        {u"git@example.org:team/app.git"_s, RepositoryKind::git, u"app"_s},
        {u"git@example.org:app"_s, RepositoryKind::git, u"git@example.org:app"_s},
        {u"ssh://git@example.org/app/"_s, RepositoryKind::git, u"app"_s},
        {u"https://example.org/app.git"_s, RepositoryKind::git, u"app"_s},
        {u"https://example.org/app.git/"_s, RepositoryKind::svn, u"app"_s},
        {u"https://example.org/my.github.io"_s, RepositoryKind::svn, u"myhub.io"_s},
        {u"svn://example.org/old.svn/trunk//"_s, RepositoryKind::svn, u"trunk"_s},
        {u"file:///srv/old.svn"_s, RepositoryKind::svn, u"old"_s},
        {u"https://example.org/my%20project"_s, RepositoryKind::svn, u"my%20project"_s},
        {u"///"_s, RepositoryKind::svn, u"Working Copy"_s},
    };
    for (const Row &row : rows) {
        EXPECT_EQ(repositoryKindOf(row.url), row.kind) << row.url.toStdString();
        EXPECT_EQ(offeredFolderName(row.url), row.name) << row.url.toStdString();
    }
}

TEST(RepositoryAddresses, AreRefusedWhenTheyAreOptionsOrPathsOfWindows) {
    for (const QString &good :
         {u"https://example.org/a b/größe@5"_s, u"file:///C"_s, u"file:///srv/c:/x"_s, u"h:srv/app.git"_s,
          u"h:/srv/app.git"_s, u"svn+ssh://me@host/x"_s, u"/srv/back\\slash.git"_s, u"s://x"_s, u"trunk/a-b"_s})
        EXPECT_EQ(addressRefusal(good), std::nullopt) << good.toStdString();
    for (const QString &bad :
         {u"-x"_s, u"--upload-pack=touch x.git"_s, u"C:\\repos\\app"_s, u"c:\\app.git"_s, u"D:/repos/app.git"_s,
          u"\\\\server\\share\\app"_s, u"file:///C:\\repos\\app"_s, u"file:///c:/repos/app"_s, u"file://C:/repos"_s})
        EXPECT_NE(addressRefusal(bad), std::nullopt) << bad.toStdString();
}

TEST(RepositoryAddresses, KeepTheirAtFromBeingARevision) {
    struct Row {
        QString url;
        QString target;    ///< to read
        QString newTarget; ///< to make
    };
    const Row rows[] = {
        {u"https://me@host/trunk"_s, u"https://me@host/trunk"_s, u"https://me@host/trunk"_s},
        {u"svn+ssh://me@host"_s, u"svn+ssh://me@host@"_s, u"svn+ssh://me@host@"_s},
        {u"file:///r/icon@2x.png"_s, u"file:///r/icon@2x.png@"_s, u"file:///r/icon@2x.png@"_s},
        {u"file:///r/a%40b"_s, u"file:///r/a%40b@"_s, u"file:///r/a%40b@"_s},
        {u"file:///r/a@b/"_s, u"file:///r/a@b/@"_s, u"file:///r/a@b/@"_s},
        {u"file:///r/a@b@"_s, u"file:///r/a@b@"_s, u"file:///r/a@b@"_s},
        {u"file:///r/a@12"_s, u"file:///r/a@12"_s, u"file:///r/a@12@"_s},
        {u"file:///r/a@head"_s, u"file:///r/a@head"_s, u"file:///r/a@head@"_s},
        {u"file:///r/a@{2024-02-01}"_s, u"file:///r/a@{2024-02-01}"_s, u"file:///r/a@{2024-02-01}@"_s},
        {u"file:///r/a%40b@7"_s, u"file:///r/a%40b@7"_s, u"file:///r/a%40b@7@"_s},
    };
    for (const Row &row : rows) {
        EXPECT_EQ(svnURLTarget(row.url), row.target) << row.url.toStdString();
        EXPECT_EQ(svnNewURLTarget(row.url), row.newTarget) << row.url.toStdString();
    }
}

TEST(NewFolders, TakeOnePlainName) {
    for (const QString &good : {u"app"_s, u".app"_s, u"..app"_s, u"a b"_s, u"-x"_s, u"größe@2"_s, u"a\\b"_s})
        EXPECT_EQ(folderNameRefusal(good), std::nullopt) << good.toStdString();
    EXPECT_EQ(folderNameRefusal(QString()),
              (Refusal{u"Folder Name Required"_s, u"Choose a name for the new folder."_s}));
    for (const QString &bad : {u"."_s, u".."_s, u"a/b"_s, u"/tmp"_s, u"../x"_s, u"a/"_s}) {
        const std::optional<Refusal> refusal = folderNameRefusal(bad);
        ASSERT_TRUE(refusal) << bad.toStdString();
        EXPECT_EQ(refusal->title, u"Invalid Folder Name"_s);
    }
    EXPECT_EQ(folderIn(u"/"_s, u"a"_s), u"/a"_s);
    EXPECT_EQ(newRepositoryAt(u"/tmp/x/../Demo"_s), (NewRepository{u"/tmp/Demo"_s, u"/tmp/Demo.repo"_s}));
    for (const QString &unnamed : {u"/tmp/"_s, u"/tmp/."_s, u"/tmp/.."_s, u"/tmp/x/.."_s})
        EXPECT_EQ(newRepositoryAt(unnamed), std::nullopt) << unnamed.toStdString();
    EXPECT_EQ(fileURL(u"/tmp/a b#c%ü?"_s), u"file:///tmp/a%20b%23c%25%C3%BC%3F"_s);
}

TEST(NewFolders, ReplaceNothingButAnEmptyFolder) {
    TempTree tree;
    tree.makeDirectory(u"empty"_s);
    tree.write(u"hidden/.file"_s);
    tree.write(u"file"_s);
    tree.write(u"Demo.repo/format"_s);
    QFile::link(tree.path(u"nowhere"_s), tree.path(u"dangling"_s));
    for (const QString &free : {u"none"_s, u"empty"_s})
        EXPECT_EQ(standingDestinationRefusal(tree.path(free)), std::nullopt) << free.toStdString();
    for (const QString &taken : {u"hidden"_s, u"file"_s, u"dangling"_s}) {
        EXPECT_EQ(standingDestinationRefusal(tree.path(taken)),
                  (Refusal{u"Destination Already Exists"_s, tree.path(taken) + u" already exists."_s}));
        EXPECT_TRUE(remainsText(tree.path(taken)).contains(tree.path(taken)));
    }
    EXPECT_EQ(remainsText(tree.path(u"empty"_s)), QString());
    const auto refusalAt = [&tree](const QString &name) {
        return standingRepositoryRefusal(*newRepositoryAt(tree.path(name))).value_or(Refusal());
    };
    EXPECT_EQ(refusalAt(u"Demo"_s),
              (Refusal{u"Repository Already Exists"_s, tree.path(u"Demo.repo"_s) + u" already exists."_s}));
    EXPECT_EQ(refusalAt(u"empty"_s),
              (Refusal{u"Working Directory Already Exists"_s, tree.path(u"empty"_s) + u" already exists."_s}));
    EXPECT_EQ(refusalAt(u"New"_s), Refusal());
}

} // namespace
} // namespace kestor
