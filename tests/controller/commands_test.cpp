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

TEST(Commands, ShowOutputOnlyWhenThereIsSomeOrItIsWanted) {
    SvnFixture repository;
    AppFixture f;
    f.open(repository.path(), RepositoryKind::svn);
    const QStringList silent{u"cleanup"_s};
    awaited(f.app.runSelectedProjectCommand(u"Cleanup"_s, silent, RefreshAfter::no, ShowOutput::whenPrinted));
    EXPECT_EQ(f.app.commandOutput.value(), std::nullopt);
    awaited(f.app.runSelectedProjectCommand(u"Cleanup"_s, silent, RefreshAfter::no, ShowOutput::always));
    ASSERT_TRUE(f.app.commandOutput.value().has_value());
    EXPECT_EQ(f.app.commandOutput.value()->stdoutText, QString());
    EXPECT_EQ(f.app.commandOutput.value()->status, 0);
    repository.write(u"new.c"_s);
    awaited(
        f.app.runSelectedProjectCommand(u"Add"_s, {u"add"_s, u"new.c"_s}, RefreshAfter::yes, ShowOutput::whenPrinted));
    EXPECT_EQ(f.app.commandOutput.value()->stdoutText, u"A         new.c\n"_s);
    EXPECT_EQ(f.rows(), (QStringList{u"*A new.c"_s}));
    EXPECT_EQ(f.alertText(), QString());
}

TEST(Commands, AFailureIsReportedOnceWithTheBusyMessageGone) {
    SvnFixture repository;
    AppFixture f;
    f.open(repository.path(), RepositoryKind::svn);
    std::optional<QString> busyWhenAlerted = u"unset"_s;
    const auto watching = f.app.alert.addNotifier([&] { busyWhenAlerted = f.app.busyMessage.value(); });
    awaited(f.app.runSelectedProjectCommand(u"Update"_s, {u"update"_s, u"-r"_s, u"999"_s}, RefreshAfter::yes,
                                            ShowOutput::whenPrinted));
    EXPECT_TRUE(f.alertText().startsWith(u"Update Failed: svn: E160006"_s)) << qPrintable(f.alertText());
    EXPECT_EQ(busyWhenAlerted, std::nullopt);
    EXPECT_EQ(f.app.commandOutput.value()->title, u"Update Failed"_s);
    EXPECT_EQ(f.app.commandOutput.value()->status, 1);
}

TEST(Commands, OfTheOtherKindAreRefusedBeforeAnythingRuns) {
    SvnFixture svn;
    GitFixture git;
    AppFixture f;
    const QStringList vector{u"cleanup"_s};
    awaited(f.app.runSelectedGitCommand(u"Gc"_s, vector, RefreshAfter::no, ShowOutput::always));
    EXPECT_EQ(f.alertText(), u"No Project Selected: Choose a project first."_s);
    f.open(svn.path(), RepositoryKind::svn);
    awaited(f.app.runSelectedGitCommand(u"Gc"_s, vector, RefreshAfter::no, ShowOutput::always));
    EXPECT_EQ(f.alertText(), u"Git Command Unavailable: This project is an SVN working copy."_s);
    f.open(git.path(), RepositoryKind::git);
    awaited(f.app.runSelectedProjectCommand(u"Cleanup"_s, vector, RefreshAfter::no, ShowOutput::always));
    EXPECT_EQ(f.alertText(), u"SVN Command Unavailable: This project is a Git repository. Use Git-backed actions from "
                             "Changes and History."_s);
    EXPECT_EQ(f.app.commandOutput.value(), std::nullopt);
}

} // namespace
} // namespace kestor
