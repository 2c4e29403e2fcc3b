#include "controller/incoming_range.h"
#include "support/test.h"

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
    const Rows<QByteArray, QByteArray, std::optional<QString>> rows{
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
    for (const auto &[name, wantedEntries, revision, expected] : rows) {
        const IncomingStatus status = incomingStatus(infoAt(revision), statusOf(wantedEntries));
        EXPECT_EQ(rangeDescription(status.range), expected);
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
    EXPECT_TRUE(incomingEntriesOf(log + "</log>", range, entries).isSharedWith(entries)) << "publishing it is free";
}

} // namespace
} // namespace kestor
