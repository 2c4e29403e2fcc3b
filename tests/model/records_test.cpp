#include "model/marked_paths.h"
#include "model/working_copy_items.h"
#include "support/test.h"

namespace kestor {
namespace {

TEST(RecordsTest, packedRowsAreTheSameRows) {
    using K = SVNStatusKind;
    const QList<WorkingCopyItem> rows{{u"a"_s, K::modified, K::added, true, u"7"_s, u"jo"_s, std::nullopt},
                                      {u"größe/b"_s, K::unversioned, K::none, false, std::nullopt, u""_s, u"größe"_s},
                                      {u"c"_s, K::modified, K::none, false, u"7"_s, u"jo"_s, std::nullopt},
                                      {u"d"_s, K::modified, K::none, false, std::nullopt, std::nullopt, u"größe"_s}};
    const WorkingCopyItems packed = rows;
    EXPECT_EQ(packed.toList(), rows);
    EXPECT_EQ(packed, WorkingCopyItems(rows));
    EXPECT_EQ(packed.indexOf(u"c"), 2);
    EXPECT_FALSE(packed.indexOf(u"größe/"));
    for (qsizetype i = 0; i < rows.size(); ++i) {
        QList<WorkingCopyItem> others = rows;
        others[i].author = u"al"_s;
        EXPECT_FALSE(packed == WorkingCopyItems(others));
    }
    MarkedPaths marked(packed);
    marked.mark(1, true);
    marked.mark(2, true);
    EXPECT_EQ(marked.items(), rows.sliced(1, 2));
    const QList<WorkingCopyItem> later{rows[3], rows[2], rows[0]};
    EXPECT_EQ(marked.in(later).items(), QList{rows[2]});
}

} // namespace
} // namespace kestor
