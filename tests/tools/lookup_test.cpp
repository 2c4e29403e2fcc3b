#include "support/temp_tree.h"
#include "support/test.h"
#include "tools/arguments.h"
#include "tools/child_environment.h"
#include "tools/executable_search.h"

namespace kestor {
namespace {

QProcessEnvironment environmentOf(const QStringList &assignments) {
    QProcessEnvironment environment;
    for (const QString &assignment : assignments)
        environment.insert(assignment.section(u'=', 0, 0), assignment.section(u'=', 1));
    return environment;
}

TEST(ExecutableSearch, FirstPlaceThatHasItWins) {
    enum class Wanted : std::uint8_t { svn, svnadmin, git };
    struct Row {
        const char *name;
        Wanted wanted;
        QString preferred;
        QStringList environment, executables;
        QString found; ///< "" when none is
    };
    const QStringList path = args("PATH=/a::/b/");
    const QStringList usualSvn =
        args("/opt/local/bin/svn", "/opt/homebrew/bin/svn", "/usr/local/bin/svn", "/usr/bin/svn");
    const QStringList usualGit =
        args("/usr/local/bin/git", "/opt/local/bin/git", "/opt/homebrew/bin/git", "/usr/bin/git");
    const Row rows[] = {
        {"preference untested", Wanted::svn, u"/x/svn"_s, path, args("/a/svn"), u"/x/svn"_s},
        {"first in PATH", Wanted::svn, {}, path, args("/b/svn", "/a/svn"), u"/a/svn"_s},
        {"PATH before the usual folders", Wanted::svn, {}, path, args("/usr/bin/svn", "/b/svn"), u"/b/svn"_s},
        {"usual folders in order", Wanted::svn, {}, path, usualSvn, u"/opt/local/bin/svn"_s},
        {"nowhere", Wanted::svn, {}, path, args("/svn", "/c/svn"), {}},
        {"beside the preference", Wanted::svnadmin, u"/x/bin/svn"_s, path, args("/a/svnadmin", "/x/bin/svnadmin"),
         u"/x/bin/svnadmin"_s},
        {"not beside the preference", Wanted::svnadmin, u"/x/bin/svn"_s, path, args("/a/svnadmin"), u"/a/svnadmin"_s},
        {"git in PATH", Wanted::git, {}, path, args("/usr/bin/git", "/b/git"), u"/b/git"_s},
        {"the system's git first", Wanted::git, {}, path, usualGit, u"/usr/bin/git"_s},
        {"no git", Wanted::git, u"/a/git"_s, {}, {}, {}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        const auto isExecutable = [&](const QString &candidate) {
            return row.executables.contains(candidate);
        };
        const QProcessEnvironment environment = environmentOf(row.environment);
        const std::optional<QString> found =
            row.wanted == Wanted::svn        ? resolvedSVNPath(row.preferred, environment, isExecutable)
            : row.wanted == Wanted::svnadmin ? resolvedSVNAdminPath(row.preferred, environment, isExecutable)
                                             : resolvedGitPath(environment, isExecutable);
        EXPECT_EQ(found.has_value(), !row.found.isEmpty());
        EXPECT_EQ(found.value_or(QString()), row.found);
    }
}

TEST(ChildEnvironment, GitGetsItsConfigurationAfterWhatIsThere) {
    const Rows<QStringList, int> rows{
        {"first", {}, 0},
        {"after others",
         args("GIT_CONFIG_COUNT=2", "GIT_CONFIG_KEY_0=a.b", "GIT_CONFIG_VALUE_0=x", "GIT_CONFIG_KEY_1=c.d",
              "GIT_CONFIG_VALUE_1=y"),
         2},
        {"unreadable count", args("GIT_CONFIG_COUNT=some"), 0},
        {"negative count", args("GIT_CONFIG_COUNT=-1"), 0},
    };
    for (const auto &[name, wantedInherited, before] : rows) {
        const QProcessEnvironment inherited = environmentOf(wantedInherited);
        const QProcessEnvironment environment = gitChildEnvironment(inherited, RunPurpose::userCommand);
        const int count = environment.value(u"GIT_CONFIG_COUNT"_s).toInt();
        QStringList added;
        for (int i = before; i < count; ++i) {
            const QString number = QString::number(i);
            added.append(environment.value(u"GIT_CONFIG_KEY_"_s + number) + u'=' +
                         environment.value(u"GIT_CONFIG_VALUE_"_s + number));
        }
        EXPECT_TRUE(added.contains(u"core.quotePath=false"_s));
        EXPECT_FALSE(added.contains(u"="_s));
        for (int i = 0; i < before; ++i) {
            const QString key = u"GIT_CONFIG_KEY_"_s + QString::number(i);
            EXPECT_EQ(environment.value(key), inherited.value(key));
        }
    }
}

TEST(ChildEnvironment, GitLooksForTheRepositoryInItsFolder) {
    const QProcessEnvironment inherited =
        environmentOf(args("GIT_DIR=/a/.git", "GIT_INDEX_FILE=/a/index", "GIT_AUTHOR_NAME=me"));
    QStringList left = gitChildEnvironment(inherited, RunPurpose::userCommand).keys();
    left.removeIf([](const QString &key) { return key.startsWith(u"GIT_CONFIG_"); });
    EXPECT_EQ(left, u"GIT_AUTHOR_NAME|LC_ALL"_list);
}

TEST(ChildEnvironment, OnlyABackgroundReadOfGitForgoesLocks) {
    const QString key = u"GIT_OPTIONAL_LOCKS"_s;
    EXPECT_EQ(gitChildEnvironment({}, RunPurpose::backgroundRead).value(key), u"0"_s);
    EXPECT_FALSE(gitChildEnvironment({}, RunPurpose::userCommand).contains(key));
}

} // namespace
} // namespace kestor
