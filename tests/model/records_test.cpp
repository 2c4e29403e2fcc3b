#include "model/custom_language_rule.h"
#include "model/diff.h"
#include "model/file_history.h"
#include "model/log_entry.h"
#include "model/project.h"
#include "model/workflow_tab.h"
#include "model/working_copy_item.h"
#include "support/printers.h"

#include <QJsonDocument>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kestor {
namespace {

TEST(RecordsTest, textsConvertExactly) {
    EXPECT_EQ(statusKindFromRawValue(u"obstructed"), SVNStatusKind::obstructed);
    EXPECT_EQ(statusKindFromRawValue(u"Added"), std::nullopt);
    EXPECT_EQ(statusKindFromRawValue(u"obstruct"), std::nullopt);
    EXPECT_EQ(workflowTabFromRawValue(u"Changes"), WorkflowTab::changes);
    EXPECT_EQ(workflowTabFromRawValue(u"changes"), std::nullopt);
    EXPECT_EQ(repositoryKindFromRawValue(u"Git"), std::nullopt);
}

TEST(RecordsTest, statusLabel) {
    struct Row {
        const char *name;
        SVNStatusKind kind;
        SVNStatusKind propertiesKind;
        bool treeConflict;
        QString label;
    };
    using Kind = SVNStatusKind;
    const Row rows[] = {
        {"a tree conflict hides all else", Kind::modified, Kind::modified, true, u"Tree Conflict"_s},
        {"changed properties are added", Kind::modified, Kind::modified, false, u"Modified, Props M"_s},
        {"so are conflicting ones", Kind::normal, Kind::conflicted, false, u"Normal, Props C"_s},
        {"unchanged properties are not", Kind::conflicted, Kind::normal, false, u"Conflict"_s},
        {"nor absent ones", Kind::unversioned, Kind::none, false, u"Unversioned"_s},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        const WorkingCopyItem item{
            .path = u"a"_s, .kind = row.kind, .propertiesKind = row.propertiesKind, .treeConflict = row.treeConflict};
        EXPECT_EQ(statusLabel(item), row.label);
    }
}

TEST(RecordsTest, revisionsAndMessagesAreShort) {
    struct Row {
        const char *name;
        qint64 revision;
        std::optional<QString> hash;
        QString message;
        QString displayRevision;
        QString summary;
    };
    const Row rows[] = {
        {"a hash is cut", 1000000, u"0123456789abcdef"_s, u" fix\n\nall of it\n"_s, u"0123456"_s,
         u"fix\n\nall of it"_s},
        {"a short hash stays", 1, u"01234"_s, u"x"_s, u"01234"_s, u"x"_s},
        {"a revision without hash", 42, std::nullopt, u" \t\r\n\u2028"_s, u"r42"_s, u"(no message)"_s},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        const LogEntry entry{.revision = row.revision, .commitHash = row.hash, .message = row.message};
        EXPECT_EQ(entry.displayRevision(), row.displayRevision);
        EXPECT_EQ(entry.summary(), row.summary);
        const FileHistoryRevision revision{.revision = row.revision, .commitHash = row.hash, .message = row.message};
        EXPECT_EQ(revision.displayRevision(), row.displayRevision);
        EXPECT_EQ(revision.summary(), row.summary);
    }
}

TEST(RecordsTest, aDiffIsNamedByItsNewPath) {
    struct Row {
        const char *oldPath;
        const char *newPath;
        QStringView shown;
    };
    const Row rows[] = {
        {"a", "b", u"b"},           {"a", "/dev/null", u"a"},        {"a", "", u"a"},   {"/dev/null", "b", u"b"},
        {"", "/dev/null", u"Diff"}, {"/dev/null", "", u"/dev/null"}, {"", "", u"Diff"},
    };
    for (const Row &row : rows) {
        const DiffFile file{.oldPath = QLatin1StringView(row.oldPath), .newPath = QLatin1StringView(row.newPath)};
        EXPECT_EQ(file.displayPath(), row.shown) << row.oldPath << " " << row.newPath;
    }
}

TEST(RecordsTest, normalizedColorHex) {
    struct Row {
        QStringView typed;
        std::optional<QString> normalized;
    };
    const Row rows[] = {
        {u" #abc\n", u"#AABBCC"_s}, {u"ff8800", u"#FF8800"_s}, {u"f80", u"#FF8800"_s},
        {u"#Ff8800", u"#FF8800"_s}, {u"12345", std::nullopt},  {u"#GG0000", std::nullopt},
        {u"##abc", std::nullopt},   {u"", std::nullopt},       {u"１２３", std::nullopt},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(qPrintable(row.typed.toString()));
        EXPECT_EQ(CustomLanguageRule::normalizedColorHex(row.typed), row.normalized);
    }
}

TEST(RecordsTest, jsonShapes) {
    const QUuid id(u"7d2f1c54-0d4b-4b8e-9f7a-0123456789ab"_s);
    const CustomLanguageRule plain{id, u"zig"_s, u"Zig"_s, u"f80"_s, std::nullopt};
    const CustomLanguageRule full{id, u"zig"_s, u"Zig"_s, u"f80"_s, u" /s.sublime-syntax "_s};
    EXPECT_EQ(
        QJsonDocument(toJson(Project{id, u"näme"_s, u"/p"_s, RepositoryKind::git})).toJson(QJsonDocument::Compact),
        R"({"id":"7D2F1C54-0D4B-4B8E-9F7A-0123456789AB","kind":"git","name":"näme","path":"/p"})");
    EXPECT_EQ(toJson(plain).keys(), QStringList({u"colorHex"_s, u"fileExtension"_s, u"id"_s, u"languageName"_s}));
    EXPECT_EQ(customLanguageRuleFromJson(toJson(plain)), plain);
    EXPECT_EQ(customLanguageRuleFromJson(toJson(full)), full);
    EXPECT_EQ(full.normalizedSyntaxFilePath(), u"/s.sublime-syntax"_s);
}

} // namespace
} // namespace kestor
