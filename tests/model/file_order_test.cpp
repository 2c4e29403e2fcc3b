#include "model/file_order.h"
#include "support/printers.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>

using namespace Qt::StringLiterals;

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
    struct Row {
        const char *name;
        QStringList sorted;
    };
    const Row rows[] = {
        {"case is ignored and digits compare by value", {u"File1.txt"_s, u"file2.txt"_s, u"file10.txt"_s}},
        {"letters after their numbers", {u"A"_s, u"a9"_s, u"a10"_s, u"b"_s}},
        {"accents among the plain letters", {u"ära"_s, u"Arena"_s, u"zebra"_s, u"zürich"_s, u"日本"_s}},
        {"a folder before its content", {u"lib"_s, u"lib/a"_s, u"lib/b"_s, u"lib2"_s}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(inStandardOrder(QStringList(row.sorted.crbegin(), row.sorted.crend())), row.sorted);
    }
}

TEST(FileOrderTest, equalTextsKeepTheirOrder) {
    const QStringList texts{u"b"_s, u"README"_s, u"readme"_s, u"x007"_s, u"x7"_s, u"a"_s, u"ReadMe"_s};
    EXPECT_EQ(inStandardOrder(texts),
              QStringList({u"a"_s, u"b"_s, u"README"_s, u"readme"_s, u"ReadMe"_s, u"x007"_s, u"x7"_s}));
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
    struct Row {
        const char *name;
        QString alphabet;
    };
    const Row rows[] = {
        {"all printable ASCII", printable},
        {"digits between others", u"0019a/A.$"_s},
        {"digits only", u"01239"_s},
        {"with accents", u"aäÄz09/ß"_s},
    };
    std::mt19937 random(1); // NOLINT(bugprone-random-generator-seed, cert-msc51-cpp): failures must be repeatable
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        QStringList texts;
        for (int i = 0; i < 2000; ++i)
            texts.append(randomText(random, row.alphabet));
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
