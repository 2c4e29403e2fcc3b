#include "support/printers.h"
#include "support/temp_tree.h"
#include "tools/arguments.h"
#include "tools/child_environment.h"
#include "tools/executable_search.h"

#include <QFile>

#include <gtest/gtest.h>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;
using testing::TempTree;

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
        QStringList environment;
        QStringList executables;
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
        {"second usual folder", Wanted::svn, {}, path, usualSvn.mid(1), u"/opt/homebrew/bin/svn"_s},
        {"last usual folder", Wanted::svn, {}, {}, usualSvn.mid(3), u"/usr/bin/svn"_s},
        {"nowhere", Wanted::svn, {}, path, args("/svn", "/c/svn"), {}},
        {"beside the preference", Wanted::svnadmin, u"/x/bin/svn"_s, path, args("/a/svnadmin", "/x/bin/svnadmin"),
         u"/x/bin/svnadmin"_s},
        {"not beside the preference", Wanted::svnadmin, u"/x/bin/svn"_s, path, args("/a/svnadmin"), u"/a/svnadmin"_s},
        {"svnadmin in the usual folders",
         Wanted::svnadmin,
         {},
         path,
         args("/usr/bin/svnadmin", "/usr/local/bin/svnadmin"),
         u"/usr/local/bin/svnadmin"_s},
        {"git in PATH", Wanted::git, {}, path, args("/usr/bin/git", "/b/git"), u"/b/git"_s},
        {"the system's git first", Wanted::git, {}, path, usualGit, u"/usr/bin/git"_s},
        {"then Homebrew's", Wanted::git, {}, path, usualGit.mid(0, 3), u"/opt/homebrew/bin/git"_s},
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

TEST(ExecutableSearch, OnlyExecutableFilesCount) {
    TempTree tree;
    tree.makeDirectory(u"folder"_s);
    tree.write(u"plain"_s);
    tree.write(u"program"_s);
    QFile::setPermissions(tree.path(u"program"_s), QFile::ReadOwner | QFile::ExeOwner);
    QFile::link(tree.path(u"program"_s), tree.path(u"link"_s));
    struct Row {
        QString path;
        bool executable;
    };
    const Row rows[] = {
        {u"folder"_s, false}, {u"plain"_s, false}, {u"none"_s, false}, {u"program"_s, true}, {u"link"_s, true}};
    for (const Row &row : rows)
        EXPECT_EQ(isExecutableFile(tree.path(row.path)), row.executable) << row.path.toStdString();
}

TEST(ChildEnvironment, KeepsEverythingElse) {
    struct Row {
        const char *name;
        QStringList inherited;
        QStringList expected;
    };
    const Row rows[] = {
        {"empty", {}, args("LC_ALL=C.UTF-8")},
        {"replaced", args("HOME=/h", "LANG=de_DE.UTF-8", "LC_ALL=de_DE.UTF-8"),
         args("HOME=/h", "LANG=de_DE.UTF-8", "LC_ALL=C.UTF-8")},
        {"a wish for translations goes", args("LANGUAGE=de:en"), args("LC_ALL=C.UTF-8")},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        QStringList expected = row.expected;
#ifdef Q_OS_MACOS
        expected.replaceInStrings(u"C.UTF-8"_s, u"C"_s);
#endif
        EXPECT_EQ(childEnvironment(environmentOf(row.inherited)), environmentOf(expected));
    }
}

TEST(ChildEnvironment, GitGetsItsConfigurationAfterWhatIsThere) {
    struct Row {
        const char *name;
        QStringList inherited;
        int before; ///< entries that are there already
    };
    const Row rows[] = {
        {"first", {}, 0},
        {"after others",
         args("GIT_CONFIG_COUNT=2", "GIT_CONFIG_KEY_0=a.b", "GIT_CONFIG_VALUE_0=x", "GIT_CONFIG_KEY_1=c.d",
              "GIT_CONFIG_VALUE_1=y"),
         2},
        {"unreadable count", args("GIT_CONFIG_COUNT=some"), 0},
        {"negative count", args("GIT_CONFIG_COUNT=-1"), 0},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        const QProcessEnvironment inherited = environmentOf(row.inherited);
        const QProcessEnvironment environment = gitChildEnvironment(inherited, RunPurpose::userCommand);
        const int count = environment.value(u"GIT_CONFIG_COUNT"_s).toInt();
        QStringList added;
        for (int i = row.before; i < count; ++i) {
            const QString number = QString::number(i);
            added.append(environment.value(u"GIT_CONFIG_KEY_"_s + number) + u'=' +
                         environment.value(u"GIT_CONFIG_VALUE_"_s + number));
        }
        EXPECT_TRUE(added.contains(u"core.quotePath=false"_s));
        EXPECT_FALSE(added.contains(u"="_s));
        for (int i = 0; i < row.before; ++i) {
            const QString key = u"GIT_CONFIG_KEY_"_s + QString::number(i);
            EXPECT_EQ(environment.value(key), inherited.value(key));
        }
    }
}

TEST(ChildEnvironment, OnlyABackgroundReadOfGitForgoesLocks) {
    const QString key = u"GIT_OPTIONAL_LOCKS"_s;
    EXPECT_EQ(gitChildEnvironment({}, RunPurpose::backgroundRead).value(key), u"0"_s);
    EXPECT_FALSE(gitChildEnvironment({}, RunPurpose::userCommand).contains(key));
}

} // namespace
} // namespace kestor
