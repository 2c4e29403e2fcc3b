#include "support/app_test.h"

namespace kestor {
namespace {

QString printed(const QByteArray &output) {
    return QString::fromUtf8(output).trimmed();
}

TEST(RepositoryInfo, OfAGitProjectSpeaksOfHeadAndItsUpstream) {
    GitFixture repository;
    repository.commit({{u"a.c"_s}});
    repository.git(u"remote|add|origin|https://example.org/origin.git"_list);
    repository.git(u"remote|add|fork|https://example.org/fork.git"_list);
    AppFixture f(repository);
    const RepositoryInfo info = f.app.repositoryInfo;
    EXPECT_EQ(info.workingCopyRoot, repository.path());
    EXPECT_EQ(info.repositoryRoot, repository.path(u".git"_s));
    EXPECT_EQ(info.url, u"https://example.org/origin.git"_s);
    EXPECT_EQ(info.relativeURL, std::nullopt);
    EXPECT_EQ(info.workingRevision, u"main"_s);
    EXPECT_EQ(info.revision, printed(repository.git(u"rev-parse|HEAD"_list)));
    EXPECT_EQ(info.lastChangedRevision, printed(repository.git(u"rev-parse|--short|HEAD"_list)));
    EXPECT_EQ(info.lastChangedAuthor, u"Ada Test"_s);

    repository.git(u"config|branch.main.remote|fork"_list);
    repository.git(u"tag|main"_list);
    awaited(f.app.loadInfo());
    EXPECT_EQ(f.app.repositoryInfo.value().url, u"https://example.org/fork.git"_s);
    EXPECT_EQ(f.app.repositoryInfo.value().workingRevision, u"main"_s) << "also with a tag of the same name";
    repository.git(u"checkout|-q|--detach"_list);
    awaited(f.app.loadInfo());
    EXPECT_EQ(f.app.repositoryInfo.value().workingRevision, u"(detached)"_s);
}

} // namespace
} // namespace kestor
