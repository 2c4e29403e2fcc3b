#include "controller/new_folders.h"
#include "controller/repository_addresses.h"
#include "controller/repository_paths.h"
#include "support/test.h"

namespace kestor {
namespace {

TEST(RepositoryAddresses, SayTheirToolAndOfferAName) {
    const std::tuple<QString, RepositoryKind, QString> rows[] = {
        {u"git@example.org:team/app.git"_s, RepositoryKind::git, u"app"_s},
        {u"git@example.org:app"_s, RepositoryKind::git, u"git@example.org:app"_s},
        {u"ssh://git@example.org/app/"_s, RepositoryKind::git, u"app"_s},
        {u"https://example.org/app.git"_s, RepositoryKind::git, u"app"_s},
        {u"https://example.org/app.git/"_s, RepositoryKind::svn, u"app"_s},
        {u"https://example.org/my.github.io"_s, RepositoryKind::svn, u"myhub.io"_s},
        {u"file:///srv/old.svn"_s, RepositoryKind::svn, u"old"_s},
        {u"https://example.org/my%20project"_s, RepositoryKind::svn, u"my%20project"_s},
        {u"///"_s, RepositoryKind::svn, u"Working Copy"_s},
    };
    for (const auto &[url, kind, name] : rows) {
        EXPECT_EQ(repositoryKindOf(url), kind) << url.toStdString();
        EXPECT_EQ(offeredFolderName(url), name) << url.toStdString();
    }
}

TEST(RepositoryAddresses, AreRefusedWhenTheyAreOptionsOrPathsOfWindows) {
    for (const QString &good : u"https://example.org/a b/größe@5|file:///C|file:///srv/c:/x|h:srv/app.git|"
                               "h:/srv/app.git|svn+ssh://me@host/x|/srv/back\\slash.git|s://x|trunk/a-b"_list)
        EXPECT_EQ(addressRefusal(good), std::nullopt) << good.toStdString();
    for (const QString &bad : u"-x|--upload-pack=touch x.git|C:\\repos\\app|c:\\app.git|D:/repos/app.git|"
                              "\\\\server\\share\\app|file:///C:\\repos\\app|file:///c:/repos/app|"
                              "file://C:/repos"_list)
        EXPECT_NE(addressRefusal(bad), std::nullopt) << bad.toStdString();
}

TEST(RepositoryAddresses, KeepTheirAtFromBeingARevision) {
    // To read and to make.
    const std::tuple<QString, QString, QString> rows[] = {
        {u"https://me@host/trunk"_s, u"https://me@host/trunk"_s, u"https://me@host/trunk"_s},
        {u"svn+ssh://me@host"_s, u"svn+ssh://me@host@"_s, u"svn+ssh://me@host@"_s},
        {u"file:///r/icon@2x.png"_s, u"file:///r/icon@2x.png@"_s, u"file:///r/icon@2x.png@"_s},
        {u"file:///r/a%40b"_s, u"file:///r/a%40b@"_s, u"file:///r/a%40b@"_s},
        {u"file:///r/a@b/"_s, u"file:///r/a@b/@"_s, u"file:///r/a@b/@"_s},
        {u"file:///r/a@b@"_s, u"file:///r/a@b@"_s, u"file:///r/a@b@"_s},
        {u"file:///r/a@12"_s, u"file:///r/a@12"_s, u"file:///r/a@12@"_s},
        {u"file:///r/a@{2024-02-01}"_s, u"file:///r/a@{2024-02-01}"_s, u"file:///r/a@{2024-02-01}@"_s},
    };
    for (const auto &[url, target, newTarget] : rows) {
        EXPECT_EQ(svnURLTarget(url), target) << url.toStdString();
        EXPECT_EQ(svnNewURLTarget(url), newTarget) << url.toStdString();
    }
}

TEST(NewFolders, TakeOnePlainName) {
    for (const QString &good : u"app|.app|..app|a b|-x|größe@2|a\\b"_list)
        EXPECT_EQ(folderNameRefusal(good), std::nullopt) << good.toStdString();
    for (const QString &bad : u"|.|..|a/b|/tmp|../x|a/"_list)
        EXPECT_NE(folderNameRefusal(bad), std::nullopt) << bad.toStdString();
    EXPECT_EQ(folderIn(u"/"_s, u"a"_s), u"/a"_s);
    EXPECT_EQ(newRepositoryAt(u"/tmp/x/../Demo"_s), (NewRepository{u"/tmp/Demo"_s, u"/tmp/Demo.repo"_s}));
    for (const QString &unnamed : u"/tmp/|/tmp/.|/tmp/..|/tmp/x/.."_list)
        EXPECT_EQ(newRepositoryAt(unnamed), std::nullopt) << unnamed.toStdString();
    EXPECT_EQ(fileURL(u"/tmp/a b#c%ü?"_s), u"file:///tmp/a%20b%23c%25%C3%BC%3F"_s);
}

TEST(RepositoryPaths, MapToTheWorkingCopy) {
    const Rows<QString, QString, QString> rows{
        {"below the folder", u"/trunk/src/a.c"_s, u"^/trunk"_s, u"src/a.c"_s},
        {"outer slashes", u"//trunk/a//"_s, u"^/trunk/"_s, u"a"_s},
        {"the folder itself", u"/trunk"_s, u"^/trunk"_s, u"."_s},
        {"elsewhere", u"/branches/x/a.c"_s, u"^/trunk"_s, u"branches/x/a.c"_s},
        {"a name that only begins alike", u"/trunk2/a.c"_s, u"^/trunk"_s, u"trunk2/a.c"_s},
        {"the repository's root", u"/trunk/a.c"_s, u"^/"_s, u"trunk/a.c"_s},
        {"unknown folder", u"/trunk/a.c"_s, QString(), u"trunk/a.c"_s},
        {"a folder that a URL escapes", u"/my #%ä/a.c"_s, u"^/my%20%23%25%C3%A4"_s, u"a.c"_s},
        {"the root itself", u"/"_s, u"^/trunk"_s, QString()},
    };
    for (const auto &[name, path, relativeURL, expected] : rows)
        EXPECT_EQ(workingCopyPath(path, repositoryFolder(relativeURL)).toString(), expected);
}

} // namespace
} // namespace kestor
