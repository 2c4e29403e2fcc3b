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
    const QList<WorkingCopyItem> items{{u"unticked"_s, SVNStatusKind::modified},
                                       {u"ticked"_s, SVNStatusKind::unversioned},
                                       {u"new"_s, SVNStatusKind::added},
                                       {u"now ignored"_s, SVNStatusKind::ignored}};
    const QSet<QString> known{u"unticked"_s, u"ticked"_s, u"gone"_s, u"now ignored"_s};
    const QSet<QString> ticked{u"ticked"_s, u"gone"_s, u"now ignored"_s};
    EXPECT_EQ(ticksAfterLoad(items, known, ticked), (QSet<QString>{u"ticked"_s, u"new"_s}));
}

} // namespace
} // namespace kestor
