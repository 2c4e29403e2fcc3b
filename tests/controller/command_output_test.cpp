#include "controller/combined_output.h"
#include "support/printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kestor {
namespace {

TEST(CommandOutput, JoinsTheTrimmedPartsOfSeveralRuns) {
    const CommandOutput output =
        combinedOutput(u"Commit"_s, u"svn commit"_s, 1, {u"a"_s, u" \n"_s, u"  b\n"_s}, {u"\n"_s});
    EXPECT_FALSE(output.id.isNull());
    EXPECT_EQ(output,
              (CommandOutput{output.id, u"Commit"_s, u"svn commit"_s, 1, u"a\n\nb"_s, QString(), std::nullopt}));
}

TEST(CommandOutput, AFailureSpeaksInTheToolsWords) {
    struct Row {
        const char *name;
        SVNCommandResult result;
        QString message;
    };
    const Row rows[] = {
        {"standard error first", {u"svn"_s, 1, "out", "err"}, u"err"_s},
        {"else standard output", {u"svn"_s, 1, "out", ""}, u"out"_s},
        {"else the status", {u"svn"_s, 7, "", ""}, u"Command exited with status 7."_s},
        {"bytes that are no UTF-8 are not hidden", {u"svn"_s, 1, "out", "M\xFCller"}, u"Müller"_s},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(failureMessage(commandOutputOf(u"T"_s, row.result)), row.message);
    }
}

TEST(CommandOutput, InfoLeavesAbsentFieldsOut) {
    RepositoryInfo info;
    info.url = u"file:///repo/trunk"_s;
    info.workingRevision = u"12"_s;
    EXPECT_EQ(repositoryInfoText(info), u"URL: file:///repo/trunk\nWorking Revision: 12\n"_s);
}

} // namespace
} // namespace kestor
