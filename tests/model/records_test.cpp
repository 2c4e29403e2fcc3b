#include "model/custom_language_rule.h"
#include "model/diff.h"
#include "model/file_history.h"
#include "model/log_entry.h"
#include "model/marked_paths.h"
#include "model/project.h"
#include "model/workflow_tab.h"
#include "model/working_copy_items.h"
#include "support/test.h"

#include <QJsonDocument>

namespace kestor {
namespace {

TEST(RecordsTest, revisionsAndMessagesAreShort) {
    const Rows<qint64, std::optional<QString>, QString, QString, QString> rows{
        {"a hash is cut", 1000000, u"0123456789abcdef"_s, u" fix\n\nall of it\n"_s, u"0123456"_s,
         u"fix\n\nall of it"_s},
        {"a short hash stays", 1, u"01234"_s, u"x"_s, u"01234"_s, u"x"_s},
        {"a revision without hash", 42, std::nullopt, u" \t\r\n\u2028"_s, u"r42"_s, u"(no message)"_s},
    };
    for (const auto &[name, wantedRevision, hash, message, displayRevision, summary] : rows) {
        const LogEntry entry{.revision = wantedRevision, .commitHash = hash, .message = message};
        EXPECT_EQ(entry.displayRevision(), displayRevision);
        EXPECT_EQ(entry.summary(), summary);
        const FileHistoryRevision revision{.revision = wantedRevision, .commitHash = hash, .message = message};
        EXPECT_EQ(revision.displayRevision(), displayRevision);
        EXPECT_EQ(revision.summary(), summary);
    }
}

TEST(RecordsTest, normalizedColorHex) {
    const std::pair<QString, std::optional<QString>> rows[] = {
        {u" #abc\n"_s, u"#AABBCC"_s}, {u"ff8800"_s, u"#FF8800"_s}, {u"f80"_s, u"#FF8800"_s},
        {u"#Ff8800"_s, u"#FF8800"_s}, {u"12345"_s, std::nullopt},  {u"#GG0000"_s, std::nullopt},
        {u"##abc"_s, std::nullopt},   {u""_s, std::nullopt},       {u"１２３"_s, std::nullopt},
    };
    for (const auto &[typed, normalized] : rows)
        EXPECT_EQ(CustomLanguageRule::normalizedColorHex(typed), normalized) << typed.toStdString();
}

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

TEST(RecordsTest, jsonShapes) {
    const QUuid id(u"7d2f1c54-0d4b-4b8e-9f7a-0123456789ab"_s);
    const CustomLanguageRule plain{id, u"zig"_s, u"Zig"_s, u"f80"_s, std::nullopt};
    const CustomLanguageRule full{id, u"zig"_s, u"Zig"_s, u"f80"_s, u" /s.sublime-syntax "_s};
    EXPECT_EQ(
        QJsonDocument(toJson(Project{id, u"näme"_s, u"/p"_s, RepositoryKind::git})).toJson(QJsonDocument::Compact),
        R"({"id":"7D2F1C54-0D4B-4B8E-9F7A-0123456789AB","kind":"git","name":"näme","path":"/p"})");
    EXPECT_EQ(customLanguageRuleFromJson(toJson(plain)), plain);
    EXPECT_EQ(customLanguageRuleFromJson(toJson(full)), full);
    EXPECT_EQ(full.normalizedSyntaxFilePath(), u"/s.sublime-syntax"_s);
}

} // namespace
} // namespace kestor
