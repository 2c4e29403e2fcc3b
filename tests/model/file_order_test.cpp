#include "model/file_order.h"
#include "support/test.h"

namespace kestor {
namespace {

QStringList inStandardOrder(QStringList texts) {
    sortInStandardOrder(texts, [](const QString &text) { return text; });
    return texts;
}

TEST(FileOrderTest, isTheOrderOfAFileManager) {
    const Rows<QStringList> rows{
        {"case is ignored and digits compare by value", u"File1.txt|file2.txt|file10.txt"_list},
        {"letters after their numbers", u"A|a9|a10|b"_list},
        {"accents among the plain letters", u"ära|Arena|zebra|zürich|日本"_list},
        {"a folder before its content", u"lib|lib/a|lib/b|lib2"_list},
    };
    for (const auto &[name, sorted] : rows)
        EXPECT_EQ(inStandardOrder(QStringList(sorted.crbegin(), sorted.crend())), sorted);
}

TEST(FileOrderTest, equalTextsKeepTheirOrder) {
    const QStringList texts = u"b|README|readme|x007|x7|a|ReadMe"_list;
    EXPECT_EQ(inStandardOrder(texts), u"a|b|README|readme|ReadMe|x007|x7"_list);
}

TEST(FileOrderTest, comparesVeryLongNumbersByValue) {
    const QString nines(120, u'9');
    const QString power = u'1' + QString(120, u'0');
    EXPECT_EQ(inStandardOrder({power, nines, u"x"_s, u"2"_s}), QStringList({u"2"_s, nines, power, u"x"_s}));
}

} // namespace
} // namespace kestor
