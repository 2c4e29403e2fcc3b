#include "controller/commit_selection.h"
#include "support/printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kestor {
namespace {

TEST(CommitSelection, DecidesWhoHasATickBoxAndWhoStartsTicked) {
    using K = SVNStatusKind;
    struct Row {
        const char *name;
        WorkingCopyItem item;
        bool committable;
        bool ticked;
    };
    const Row rows[] = {
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
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(isCommittable(row.item), row.committable);
        EXPECT_EQ(isTickedAtFirst(row.item), row.ticked);
    }
}

TEST(CommitSelection, ALaterLoadKeepsWhatTheUserDid) {
    using K = SVNStatusKind;
    const QList<WorkingCopyItem> previous{{u"unticked"_s, K::modified},   {u"ticked"_s, K::unversioned},
                                          {u"gone"_s, K::modified},       {u"now ignored"_s, K::modified},
                                          {u"resolved"_s, K::conflicted}, {u"unadded"_s, K::added}};
    const QList<WorkingCopyItem> items{{u"unticked"_s, K::modified}, {u"ticked"_s, K::unversioned},
                                       {u"new"_s, K::added},         {u"now ignored"_s, K::ignored},
                                       {u"resolved"_s, K::modified}, {u"unadded"_s, K::unversioned}};
    const QSet<QString> ticked{u"ticked"_s, u"gone"_s, u"now ignored"_s, u"unadded"_s};
    EXPECT_EQ(ticksAfterLoad(items, previous, ticked), (QSet<QString>{u"ticked"_s, u"new"_s, u"resolved"_s}));
}

} // namespace
} // namespace kestor
