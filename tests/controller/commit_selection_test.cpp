#include "controller/commit_selection.h"
#include "support/marked.h"
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
        {"obstructed", {u"a"_s, K::obstructed}, true, false},
        {"incomplete", {u"a"_s, K::incomplete}, true, false},
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
    const WorkingCopyItems items =
        QList<WorkingCopyItem>{{u"ext/deep/f"_s, K::modified}, {u"ext"_s, K::external}, {u"extra"_s, K::modified}};
    EXPECT_EQ(ticksFor(items, {}), marked({u"extra"_s}).in(items));
}

TEST(CommitSelection, ALaterLoadKeepsWhatTheUserDecided) {
    using K = SVNStatusKind;
    const WorkingCopyItems before = QList<WorkingCopyItem>{
        {u"unticked"_s, K::modified}, {u"resolved"_s, K::conflicted}, {u"ticked"_s, K::unversioned},
        {u"gone"_s, K::modified},     {u"ignored"_s, K::modified},    {u"lost"_s, K::modified},
        {u"clashed"_s, K::modified},  {u"kept missing"_s, K::missing}};
    TickDecisions decisions = remainingDecisions(before, {});
    for (qsizetype row = 0; row < before.size(); ++row)
        decisions.decide(row, before.statusAt(row), row > 1);
    const WorkingCopyItems items = QList<WorkingCopyItem>{
        {u"unticked"_s, K::modified}, {u"ticked"_s, K::unversioned}, {u"new"_s, K::added},
        {u"ignored"_s, K::ignored},   {u"resolved"_s, K::modified},  {u"undecided"_s, K::unversioned},
        {u"lost"_s, K::missing},      {u"clashed"_s, K::conflicted}, {u"kept missing"_s, K::missing}};
    EXPECT_EQ(ticksFor(items, decisions), marked({u"ticked"_s, u"new"_s, u"kept missing"_s}).in(items));
    const TickDecisions remaining = remainingDecisions(items, decisions);
    EXPECT_EQ(remaining,
              (TickDecisions{marked({u"unticked"_s, u"resolved"_s}).in(items),
                             marked({u"ticked"_s, u"ignored"_s}).in(items), marked({u"kept missing"_s}).in(items)}));
    EXPECT_EQ(decisionsWithout(marked({u"ticked"_s}), remaining).ticked, marked({u"ignored"_s}).in(items));
}

} // namespace
} // namespace kestor
