#include "controller/incoming_range.h"
#include "support/printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kestor {
namespace {

QByteArray statusOf(const QByteArray &entries) {
    return "<status><target path='.'>" + entries + "<against revision='15'/></target></status>";
}

/// An item that is out of date; no revision for "".
QByteArray outdated(const QByteArray &path, const QByteArray &revision) {
    const QByteArray attribute = revision.isEmpty() ? "" : " revision='" + revision + '\'';
    return "<entry path='" + path + "'><wc-status item='normal' props='none'" + attribute +
           "/><repos-status item='modified' props='none'/></entry>";
}

QByteArray infoAt(const QByteArray &revision) {
    return "<info><entry path='.' kind='dir' revision='" + revision +
           "'><url>file:///r/trunk</url><commit revision='3'/></entry></info>";
}

TEST(IncomingRange, BeginsAtTheOldestItemThatIsOutOfDate) {
    const QByteArray external = "<entry path='ext'><wc-status item='external' props='none'/></entry>";
    struct Row {
        const char *name;
        QByteArray entries;
        QByteArray revision; ///< of the working copy
        std::optional<QString> expected;
    };
    const Row rows[] = {
        {"nothing out of date", "", "12", u"r12 to r15"_s},
        {"mixed revisions", outdated("a", "12") + outdated("b", "10"), "14", u"r10 to r15"_s},
        {"numbers, not texts", outdated("a", "9") + outdated("b", "10"), "14", u"r9 to r15"_s},
        {"no revision, or none that is a number", outdated("a", "") + outdated("b", "1x") + outdated("c", "13"), "14",
         u"r13 to r15"_s},
        {"an item added on both sides", outdated("a", "-1"), "14", u"r14 to r15"_s},
        {"revisions of another repository",
         external + outdated("ext", "1") + outdated("ext/a", "2") + outdated("b", "13"), "14", u"r13 to r15"_s},
        {"a name that only begins like an external", external + outdated("ext2", "11"), "14", u"r11 to r15"_s},
        {"nothing known", "", "", std::nullopt},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        const IncomingStatus status = incomingStatus(infoAt(row.revision), statusOf(row.entries));
        EXPECT_EQ(rangeDescription(status.range), row.expected);
    }
    const QByteArray items = external + outdated("ext/a", "2") + outdated("b", "13");
    EXPECT_EQ(incomingStatus(infoAt("14"), statusOf(items)).outdatedItems.size(), 2);
}

TEST(IncomingRange, HoldsOnlyWhatLiesAboveTheBaseAndNotAboveTheHead) {
    const IncomingRange range{10, 12};
    QByteArray log = "<log>";
    for (const char *revision : {"10", "11", "12", "13"})
        log += QByteArray("<logentry revision='") + revision + "'><msg>m</msg></logentry>";
    const QList<LogEntry> entries = incomingEntriesOf(log + "</log>", range, {});
    ASSERT_EQ(entries.size(), 2);
    EXPECT_EQ(entries[0].revision, 12);
    EXPECT_EQ(entries[1].revision, 11);
    EXPECT_TRUE(incomingEntriesOf(log + "</log>", range, entries).isSharedWith(entries)) << "publishing it is free";
}

TEST(IncomingRange, IsAskedForByTheseVectors) {
    const RepositoryInfo info{.url = u"file:///r/my%20trunk"_s};
    struct Row {
        const char *name;
        QStringList vector;
        QStringList expected;
    };
    const Row rows[] = {
        {"log", incomingLogArguments({10, 15}), {u"log"_s, u"--xml"_s, u"--verbose"_s, u"-r"_s, u"11:15"_s}},
        {"sum of lines",
         incomingSummaryArguments(info, {10, 15}),
         {u"diff"_s, u"-r"_s, u"10:15"_s, u"file:///r/my%20trunk@15"_s}},
        {"sum without a URL", incomingSummaryArguments({}, {10, 15}), {u"diff"_s, u"-r"_s, u"10:15"_s, u"."_s}},
        {"one revision", incomingDiffArguments(12), {u"diff"_s, u"-c"_s, u"12"_s, u"."_s}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.vector, row.expected);
    }
    EXPECT_TRUE(IncomingRange({15, 15}).isEmpty() && IncomingRange({16, 15}).isEmpty());
    EXPECT_TRUE(IncomingRange({{}, 15}).isEmpty() && IncomingRange({15, {}}).isEmpty());
}

TEST(IncomingRange, ARevisionOfOneFileIsTold) {
    const SVNPathChange picture{u"M"_s, u"/my trunk/d/logo.png"_s, u"file"_s};
    const SVNPathChange folder{u"A"_s, u"/my trunk/d"_s, u"dir"_s};
    const SVNPathChange elsewhere{u"M"_s, u"/my trunk2/a.c"_s, u"file"_s};
    struct Row {
        const char *name;
        QList<SVNPathChange> changes;
        QString relativeURL;
        QString expected;
    };
    const Row rows[] = {
        {"one file", {picture}, u"^/my%20trunk"_s, u"d/logo.png"_s},
        {"others outside of the working copy", {elsewhere, picture}, u"^/my%20trunk"_s, u"d/logo.png"_s},
        {"a folder", {folder}, u"^/my%20trunk"_s, {}},
        {"a folder and a file", {folder, picture}, u"^/my%20trunk"_s, {}},
        {"two files", {elsewhere, picture}, u"^/"_s, {}},
        {"a working copy of the root", {picture}, u"^/"_s, u"my trunk/d/logo.png"_s},
        {"nothing", {}, u"^/"_s, {}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        const LogEntry entry{.revision = 7, .paths = row.changes};
        const std::optional<ChangedFile> file = onlyChangedFile(entry, {.relativeURL = row.relativeURL});
        EXPECT_EQ(file ? file->path : QString(), row.expected);
        EXPECT_TRUE(!file || (file->revision.revision == 7 && file->revision.action == u"M"_s));
    }
}

} // namespace
} // namespace kestor
