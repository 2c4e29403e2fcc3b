#include "rules/status_filter.h"
#include "support/printers.h"
#include "support/temp_tree.h"

#include <QFile>

#include <gtest/gtest.h>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;
using testing::TempTree;

constexpr SVNStatusKind ignored = SVNStatusKind::ignored;
constexpr SVNStatusKind modified = SVNStatusKind::modified;
constexpr SVNStatusKind unversioned = SVNStatusKind::unversioned;

QStringList pathsOf(const QList<WorkingCopyItem> &items) {
    QStringList paths;
    for (const WorkingCopyItem &item : items)
        paths.append(item.path);
    return paths;
}

struct FilterRow {
    const char *name;
    QByteArray rules;
    QList<WorkingCopyItem> items;
    QStringList expected;
};

class StatusFilter : public ::testing::Test {
protected:
    StatusFilter() {
        for (const QString &path : {u"new/a.txt"_s, u"new/x.tmp"_s, u"new/y.log"_s, u"new/build/z"_s, u"dir/f10"_s,
                                    u"dir/f9"_s, u"objects/a.o"_s, u"objects/sub/b.o"_s, u"bare/.svn/wc.db"_s})
            tree.write(path);
        tree.write(u"new/.gitignore"_s, "*.tmp\n!y.log\n!build\n");
        tree.makeDirectory(u"new/e"_s);
        tree.makeDirectory(u"hollow"_s);
        QFile::link(tree.path(u"dir"_s), tree.path(u"link"_s));
    }

    void check(const FilterRow &row, ExpandUnversioned expand) {
        SCOPED_TRACE(row.name);
        tree.write(u".gitignore"_s, row.rules);
        const QList<WorkingCopyItem> rows = displayedStatusItems(row.items, tree.path(), expand);
        EXPECT_EQ(pathsOf(rows), row.expected);
        const IgnoreRules rules = ignoreRulesForStatusItems(row.items, tree.path(), expand);
        EXPECT_EQ(statusItemsByApplyingIgnoreRules(row.items, tree.path(), rules, expand), rows);
    }

    TempTree tree;
};

TEST_F(StatusFilter, HidesAndExpands) {
    const WorkingCopyItem newFolder{.path = u"new/"_s, .kind = unversioned};
    const FilterRow rows[] = {
        {"sorted like a file manager",
         "",
         {{.path = u"dir/f10"_s, .kind = modified}, {.path = u"dir/f9"_s, .kind = modified}},
         {u"dir/f9"_s, u"dir/f10"_s}},
        {"the first of two spellings stays",
         "",
         {{.path = u"dir/f9"_s, .kind = modified}, {.path = u"dir//f9"_s, .kind = unversioned}, {.path = u"."_s}},
         {u"dir/f9"_s}},
        {"versioned changes are hidden too", "f9\n", {{.path = u"dir/f9"_s, .kind = modified}}, {}},
        {"an item that the tool ignores", "", {{.path = u"dir/f9"_s, .kind = ignored}}, {}},
        {"an item that a rule brings back", "!f9\n", {{.path = u"dir/f9"_s, .kind = ignored}}, {u"dir/f9"_s}},
        {"a rule file inside the folder counts",
         "",
         {newFolder},
         {u"new/.gitignore"_s, u"new/a.txt"_s, u"new/build/z"_s, u"new/e"_s, u"new/y.log"_s}},
        {"a rule file inside brings back what an outer one ignores",
         "*.log\nbuild\na.txt\n",
         {newFolder},
         {u"new/.gitignore"_s, u"new/build/z"_s, u"new/e"_s, u"new/y.log"_s}},
        {"an ignored folder", "new/\n", {newFolder}, {}},
        {"a folder and a file in it, both reported",
         "*.log\n/new/e\n",
         {{.path = u"new/a.txt"_s, .kind = unversioned}, newFolder},
         {u"new/.gitignore"_s, u"new/a.txt"_s, u"new/build/z"_s, u"new/y.log"_s}},
        {"an empty folder is itself", "", {{.path = u"hollow"_s, .kind = unversioned}}, {u"hollow"_s}},
        {"a folder with metadata only is itself", "", {{.path = u"bare"_s, .kind = unversioned}}, {u"bare"_s}},
        {"a folder whose contents are all ignored is dropped",
         "*.o\nsub\n",
         {{.path = u"objects"_s, .kind = unversioned}},
         {}},
        {"a link to a folder is itself", "", {{.path = u"link"_s, .kind = unversioned}}, {u"link"_s}},
        {"a changed folder is not expanded", "", {{.path = u"dir"_s, .kind = modified}}, {u"dir"_s}},
        {"a folder rule spares a file", "f9/\n", {{.path = u"dir/f9"_s, .kind = modified}}, {u"dir/f9"_s}},
        {"names that look like syntax",
         "",
         {{.path = u"-x \"y\""_s, .kind = unversioned}, {.path = u"a\nb -> c"_s, .kind = unversioned}},
         {u"-x \"y\""_s, u"a\nb -> c"_s}},
    };
    for (const FilterRow &row : rows)
        check(row, ExpandUnversioned::yes);
    check({"without expansion a folder stays", "", {newFolder}, {u"new"_s}}, ExpandUnversioned::no);
}

TEST_F(StatusFilter, KeepsWhatTheToolSaidAndTellsWhereAFileWasFound) {
    const QList<WorkingCopyItem> items{
        {.path = u"./dir/f9"_s, .kind = modified, .revision = u"7"_s, .unversionedRoot = u"dir/"_s},
        {.path = u"objects/sub"_s, .kind = unversioned}};
    const QList<WorkingCopyItem> expected{
        {.path = u"dir/f9"_s, .kind = modified, .revision = u"7"_s, .unversionedRoot = u"dir"_s},
        {.path = u"objects/sub/b.o"_s, .kind = unversioned, .unversionedRoot = u"objects/sub"_s}};
    EXPECT_EQ(displayedStatusItems(items, tree.path(), ExpandUnversioned::yes), expected);
}

} // namespace
} // namespace kestor
