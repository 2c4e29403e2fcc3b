#include "support/app_test.h"

namespace kestor {
namespace {

TEST(Commands, ShowOutputOnlyWhenThereIsSomeOrItIsWanted) {
    SvnFixture repository;
    AppFixture f(repository);
    const QStringList silent = u"cleanup"_list;
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
    EXPECT_EQ(f.rows(), u"*A new.c"_list);
    EXPECT_EQ(f.alertText(), QString());
}

TEST(Commands, AFailureIsReportedOnceWithTheBusyMessageGone) {
    SvnFixture repository;
    AppFixture f(repository);
    std::optional<QString> busyWhenAlerted = u"unset"_s;
    const auto watching = f.app.alert.addNotifier([&] { busyWhenAlerted = f.app.busyMessage.value(); });
    awaited(f.app.runSelectedProjectCommand(u"Update"_s, {u"update"_s, u"-r"_s, u"999"_s}, RefreshAfter::yes,
                                            ShowOutput::whenPrinted));
    EXPECT_TRUE(startsWith(f.alertText(), u"Update Failed: svn: E160006"_s));
    EXPECT_EQ(busyWhenAlerted, std::nullopt);
    EXPECT_EQ(f.app.commandOutput.value()->title, u"Update Failed"_s);
    EXPECT_EQ(f.app.commandOutput.value()->status, 1);
}

} // namespace
} // namespace kestor
