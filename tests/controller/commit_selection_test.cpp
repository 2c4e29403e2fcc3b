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

TEST(CommitSelection, ALaterLoadKeepsWhatTheUserDecided) {
    using K = SVNStatusKind;
    const TickDecisions decisions{
        {u"unticked"_s, false}, {u"ticked"_s, true}, {u"gone"_s, true}, {u"resolved"_s, false}, {u"ignored"_s, true}};
    const QList<WorkingCopyItem> items{{u"unticked"_s, K::modified}, {u"ticked"_s, K::unversioned},
                                       {u"new"_s, K::added},         {u"ignored"_s, K::ignored},
                                       {u"resolved"_s, K::modified}, {u"undecided"_s, K::unversioned}};
    EXPECT_EQ(ticksFor(items, decisions), (QSet<QString>{u"ticked"_s, u"new"_s}));
    EXPECT_FALSE(remainingDecisions(items, decisions).contains(u"gone"_s));
}

} // namespace
} // namespace kestor
