#include "model/file_order.h"
#include "support/test.h"

#include <algorithm>
#include <random>

namespace kestor {
namespace {

QStringList inStandardOrder(QStringList texts) {
    sortInStandardOrder(texts, [](const QString &text) { return text; });
    return texts;
}

QStringList inCollatorOrder(QStringList texts) {
    const QCollator collator = standardCollator();
    std::stable_sort(texts.begin(), texts.end(),
                     [&](const QString &a, const QString &b) { return collator.compare(a, b) < 0; });
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

/// Few different characters make long common beginnings, runs of digits and texts that compare equal.
QString randomText(std::mt19937 &random, const QString &alphabet) {
    QString text;
    const int length = std::uniform_int_distribution(0, 9)(random);
    for (int i = 0; i < length; ++i)
        text.append(alphabet[std::uniform_int_distribution<qsizetype>(0, alphabet.size() - 1)(random)]);
    return text;
}

TEST(FileOrderTest, agreesWithTheCollator) {
    QString printable;
    for (char16_t c = u' '; c <= u'~'; ++c)
        printable.append(c);
    const Rows<QString> rows{
        {"all printable ASCII", printable},
        {"digits between others", u"0019a/A.$"_s},
        {"digits only", u"01239"_s},
        {"with accents", u"aäÄz09/ß"_s},
    };
    std::mt19937 random(1); // NOLINT(bugprone-random-generator-seed, cert-msc51-cpp): failures must be repeatable
    for (const auto &[name, alphabet] : rows) {
        QStringList texts;
        for (int i = 0; i < 2000; ++i)
            texts.append(randomText(random, alphabet));
        EXPECT_EQ(inStandardOrder(texts), inCollatorOrder(texts));
    }
}

TEST(FileOrderTest, comparesVeryLongNumbersByValue) {
    const QString nines(120, u'9');
    const QString power = u'1' + QString(120, u'0');
    EXPECT_EQ(inStandardOrder({power, nines, u"x"_s, u"2"_s}), QStringList({u"2"_s, nines, power, u"x"_s}));
}

} // namespace
} // namespace kestor
