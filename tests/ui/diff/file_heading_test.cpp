#include "parsers/unified_diff_parser.h"
#include "support/window_test.h"
#include "ui/diff/file_heading.h"

namespace kestor {

void PrintTo(const FileHeading &heading, std::ostream *out) {
    *out << heading.title().toStdString() << " (" << int(heading.kind) << ')';
}

namespace {

TEST(FileHeading, ReadsTheLinesAboveTheFirstHunk) {
    constexpr auto modified = SVNStatusKind::modified;
    const Rows<QString, FileHeading> rows{
        {"git", u"diff --git a/x b/x\n--- a/x\n+++ b/x\n@@ -1 +1 @@\n-a\n"_s, {u"x"_s, {}, modified}},
        {"git, new file",
         u"diff --git a/x b/x\nnew file mode 100644\n--- /dev/null\n+++ b/x\n@@ -0,0 +1 @@\n+a\n"_s,
         {u"x"_s, {}, SVNStatusKind::added}},
        {"git, renamed",
         u"diff --git a/o p b/n p\nrename from o p\nrename to n p\n--- a/o p\n+++ b/n p\n@@ -1 +1 @@\n+a\n"_s,
         {u"n p"_s, u"o p"_s, modified}},
        {"removed comment that looks like a header",
         u"Index: x.sql\n--- x.sql\t(revision 2)\n+++ x.sql\t(working copy)\n@@ -1 +1 @@\n--- a comment\n+b\n"_s,
         {u"x.sql"_s, {}, modified}},
        {"renamed without hunks", u"diff --git a/o b/n\nrename from o\nrename to n\n"_s, {u"n"_s, u"o"_s, modified}},
    };
    for (const auto &[name, text, heading] : rows) {
        const ParsedDiff diff = UnifiedDiffParser::parse(text);
        ASSERT_EQ(diff.files.size(), 1);
        EXPECT_EQ(fileHeading(diff.files.constFirst()), heading);
    }
}

} // namespace
} // namespace kestor
