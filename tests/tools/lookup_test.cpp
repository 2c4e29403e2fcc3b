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
    const QString svn = u"svn"_s;
    const QString admin = u"svnadmin"_s;
    const QString git = u"git"_s;
    const QStringList path = args("PATH=/a::/b/");
    const QStringList usualSvn =
        args("/opt/local/bin/svn", "/opt/homebrew/bin/svn", "/usr/local/bin/svn", "/usr/bin/svn");
    const QStringList usualGit =
        args("/usr/local/bin/git", "/opt/local/bin/git", "/opt/homebrew/bin/git", "/usr/bin/git");
    // The program, the chosen svn, what can be run; and the one found, "" for none.
    const Rows<QString, QString, QStringList, QString> rows{
        {"preference untested", svn, u"/x/svn"_s, args("/a/svn"), u"/x/svn"_s},
        {"first in PATH", svn, {}, args("/b/svn", "/a/svn"), u"/a/svn"_s},
        {"PATH before the usual folders", svn, {}, args("/usr/bin/svn", "/b/svn"), u"/b/svn"_s},
        {"usual folders in order", svn, {}, usualSvn, u"/opt/local/bin/svn"_s},
        {"nowhere", svn, {}, args("/svn", "/c/svn"), {}},
        {"beside the preference", admin, u"/x/bin/svn"_s, args("/a/svnadmin", "/x/bin/svnadmin"), u"/x/bin/svnadmin"_s},
        {"git in PATH", git, {}, args("/usr/bin/git", "/b/git"), u"/b/git"_s},
        {"the system's git first", git, {}, usualGit, u"/usr/bin/git"_s},
    };
    for (const auto &[name, program, preferred, executables, expected] : rows) {
        const auto isExecutable = [&all = executables](const QString &candidate) {
            return all.contains(candidate);
        };
        const QProcessEnvironment environment = environmentOf(path);
        const std::optional<QString> found = program == svn ? resolvedSVNPath(preferred, environment, isExecutable)
                                             : program == admin
                                                 ? resolvedSVNAdminPath(preferred, environment, isExecutable)
                                                 : resolvedGitPath(environment, isExecutable);
        EXPECT_EQ(found.value_or(QString()), expected);
    }
}

TEST(ChildEnvironment, GitGetsItsConfigurationAfterWhatIsThere) {
    const Rows<QStringList, QStringList> rows{
        {"nothing", {}, args("core.quotePath=false")},
        {"others",
         args("GIT_CONFIG_COUNT=2", "GIT_CONFIG_KEY_0=a.b", "GIT_CONFIG_VALUE_0=x", "GIT_CONFIG_KEY_1=c.d",
              "GIT_CONFIG_VALUE_1=y"),
         args("a.b=x", "c.d=y", "core.quotePath=false")},
        {"unreadable count", args("GIT_CONFIG_COUNT=some"), args("core.quotePath=false")},
        {"negative count", args("GIT_CONFIG_COUNT=-1"), args("core.quotePath=false")},
    };
    for (const auto &[name, inherited, wanted] : rows) {
        const QProcessEnvironment environment = gitChildEnvironment(environmentOf(inherited), RunPurpose::userCommand);
        QStringList settings;
        for (int i = 0; i < environment.value(u"GIT_CONFIG_COUNT"_s).toInt(); ++i)
            settings.append(environment.value(u"GIT_CONFIG_KEY_%1"_s.arg(i)) + u'=' +
                            environment.value(u"GIT_CONFIG_VALUE_%1"_s.arg(i)));
        EXPECT_EQ(settings.first(wanted.size()), wanted);
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
