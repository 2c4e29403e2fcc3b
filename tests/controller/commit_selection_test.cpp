#include "controller/commit_selection.h"
#include "support/test.h"

namespace kestor {
namespace {

TEST(CommitSelection, DecidesWhoHasATickBoxAndWhoStartsTicked) {
    using K = SVNStatusKind;
    const Rows<WorkingCopyItem, bool, bool> rows{
        {"modified", {u"a"_s, K::modified}, true, true},
        {"properties changed too", {u"a"_s, K::modified, K::modified}, true, true},
        {"added", {u"a"_s, K::added}, true, true},
        {"unversioned", {u"a"_s, K::unversioned}, true, false},
        {"missing", {u"a"_s, K::missing}, true, false},
        {"conflicted", {u"a"_s, K::conflicted}, true, false},
        {"property conflict", {u"a"_s, K::modified, K::conflicted}, true, false},
        {"tree conflict", {u"a"_s, K::modified, K::none, true}, true, false},
        {"properties only", {u"a"_s, K::normal, K::modified}, true, false},
        {"external", {u"a"_s, K::external}, false, false},
        {"ignored", {u"a"_s, K::ignored}, false, false},
        {"nothing changed", {u"a"_s, K::normal, K::none, true}, false, false},
    };
    for (const auto &[name, item, committable, ticked] : rows) {
        EXPECT_EQ(isCommittable(item), committable);
        EXPECT_EQ(isTickedAtFirst(item), ticked);
    }
}

TEST(CommitSelection, LeavesWhatLiesInExternalsUnticked) {
    using K = SVNStatusKind;
    const QList<WorkingCopyItem> items{
        {u"ext/deep/f"_s, K::modified}, {u"ext"_s, K::external}, {u"extra"_s, K::modified}};
    EXPECT_EQ(ticksFor(items, {}), QSet<QString>{u"extra"_s});
}

TEST(CommitSelection, ALaterLoadKeepsWhatTheUserDecided) {
    using K = SVNStatusKind;
    const QList<WorkingCopyItem> before{{u"ticked"_s, K::unversioned}, {u"gone"_s, K::modified},
                                        {u"ignored"_s, K::modified},   {u"lost"_s, K::modified},
                                        {u"clashed"_s, K::modified},   {u"kept missing"_s, K::missing}};
    TickDecisions decisions{{u"unticked"_s, TickDecision::untick}, {u"resolved"_s, TickDecision::untick}};
    for (const WorkingCopyItem &item : before)
        decisions.insert(item.path, decisionOn(item, true));
    const QList<WorkingCopyItem> items{
        {u"unticked"_s, K::modified}, {u"ticked"_s, K::unversioned}, {u"new"_s, K::added},
        {u"ignored"_s, K::ignored},   {u"resolved"_s, K::modified},  {u"undecided"_s, K::unversioned},
        {u"lost"_s, K::missing},      {u"clashed"_s, K::conflicted}, {u"kept missing"_s, K::missing}};
    EXPECT_EQ(ticksFor(items, decisions), (QSet<QString>{u"ticked"_s, u"new"_s, u"kept missing"_s}));
    const QList<QString> remaining = remainingDecisions(items, decisions).keys();
    EXPECT_EQ(QSet<QString>(remaining.begin(), remaining.end()),
              (QSet<QString>{u"unticked"_s, u"ticked"_s, u"resolved"_s, u"ignored"_s, u"kept missing"_s}));
}

} // namespace
} // namespace kestor
