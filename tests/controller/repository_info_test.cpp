#include "support/app_fixture.h"
#include "support/printers.h"
#include "support/repositories.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kestor {
namespace {

using testing::AppFixture;
using testing::awaited;
using testing::GitFixture;
using testing::SvnFixture;

QString printed(const QByteArray &output) {
    return QString::fromUtf8(output).trimmed();
}

TEST(RepositoryInfo, OfAGitProjectSpeaksOfHeadAndItsUpstream) {
    GitFixture repository;
    repository.write(u"a.c"_s);
    repository.commitAll(u"first"_s);
    repository.git({u"remote"_s, u"add"_s, u"origin"_s, u"https://example.org/origin.git"_s});
    repository.git({u"remote"_s, u"add"_s, u"fork"_s, u"https://example.org/fork.git"_s});
    AppFixture f;
    f.open(repository.path(), RepositoryKind::git);
    const RepositoryInfo info = f.app.repositoryInfo;
    EXPECT_EQ(info.workingCopyRoot, repository.path());
    EXPECT_EQ(info.repositoryRoot, repository.path(u".git"_s));
    EXPECT_EQ(info.url, u"https://example.org/origin.git"_s);
    EXPECT_EQ(info.relativeURL, std::nullopt);
    EXPECT_EQ(info.workingRevision, u"main"_s);
    EXPECT_EQ(info.revision, printed(repository.git({u"rev-parse"_s, u"HEAD"_s})));
    EXPECT_EQ(info.lastChangedRevision, printed(repository.git({u"rev-parse"_s, u"--short"_s, u"HEAD"_s})));
    EXPECT_EQ(info.lastChangedAuthor, u"Ada Test"_s);
    EXPECT_TRUE(info.lastChangedDate.has_value());

    repository.git({u"config"_s, u"branch.main.remote"_s, u"fork"_s});
    repository.git({u"tag"_s, u"main"_s});
    awaited(f.app.loadInfo());
    EXPECT_EQ(f.app.repositoryInfo.value().url, u"https://example.org/fork.git"_s);
    EXPECT_EQ(f.app.repositoryInfo.value().workingRevision, u"main"_s) << "also with a tag of the same name";
    repository.git({u"checkout"_s, u"-q"_s, u"--detach"_s});
    awaited(f.app.loadInfo());
    EXPECT_EQ(f.app.repositoryInfo.value().workingRevision, u"(detached)"_s);
}

TEST(RepositoryInfo, OfARepositoryWithoutCommitsReportsNothing) {
    GitFixture repository;
    AppFixture f;
    f.open(repository.path(), RepositoryKind::git);
    EXPECT_EQ(f.app.repositoryInfo.value().workingRevision, u"main"_s);
    EXPECT_EQ(f.app.repositoryInfo.value().revision, std::nullopt);
    EXPECT_EQ(f.alertText(), QString());
}

TEST(RepositoryInfo, IsShownInTheOutputSheet) {
    SvnFixture repository;
    AppFixture f;
    f.open(repository.path(), RepositoryKind::svn);
    EXPECT_EQ(f.app.repositoryInfo.value().relativeURL, u"^/trunk"_s);
    awaited(f.app.showRepositoryInfo());
    ASSERT_TRUE(f.app.commandOutput.value().has_value());
    EXPECT_EQ(f.app.commandOutput.value()->title, u"Info"_s);
    EXPECT_TRUE(f.app.commandOutput.value()->stdoutText.contains(u"Relative URL: ^/trunk\n"_s));
}

} // namespace
} // namespace kestor
