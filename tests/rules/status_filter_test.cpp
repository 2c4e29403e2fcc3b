#include "rules/status_filter.h"
#include "support/temp_tree.h"
#include "support/test.h"

namespace kestor {
namespace {

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
        for (const QString &path : u"new/a.txt|new/x.tmp|new/y.log|new/build/z|dir/f10|dir/f9|objects/a.o|"
                                   "objects/sub/b.o|bare/.svn/wc.db"_list)
            tree.write(path);
        tree.write(u"new/.gitignore"_s, "*.tmp\n!y.log\n!build\n");
        tree.makeDirectory(u"new/e"_s);
        tree.makeDirectory(u"hollow"_s);
        QFile::link(tree.path(u"dir"_s), tree.path(u"link"_s));
    }

    void check(const FilterRow &row) {
        SCOPED_TRACE(row.name);
        tree.write(u".gitignore"_s, row.rules);
        const QList<WorkingCopyItem> rows = displayedStatusItems(row.items, tree.path(), RepositoryKind::svn);
        EXPECT_EQ(pathsOf(rows), row.expected);
        constexpr ExpandUnversioned expand = ExpandUnversioned::yes;
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
         u"dir/f9|dir/f10"_list},
        {"the first of two spellings stays",
         "",
         {{.path = u"dir/f9"_s, .kind = modified}, {.path = u"dir//f9"_s, .kind = unversioned}, {.path = u"."_s}},
         u"dir/f9"_list},
        {"versioned changes are hidden too", "f9\n", {{.path = u"dir/f9"_s, .kind = modified}}, {}},
        {"an item that the tool ignores", "", {{.path = u"dir/f9"_s, .kind = ignored}}, {}},
        {"an item that a rule brings back", "!f9\n", {{.path = u"dir/f9"_s, .kind = ignored}}, u"dir/f9"_list},
        {"a rule file inside the folder counts",
         "",
         {newFolder},
         u"new/.gitignore|new/a.txt|new/build/z|new/e|new/y.log"_list},
        {"a rule file inside brings back what an outer one ignores",
         "*.log\nbuild\na.txt\n",
         {newFolder},
         u"new/.gitignore|new/build/z|new/e|new/y.log"_list},
        {"an ignored folder", "new/\n", {newFolder}, {}},
        {"a folder and a file in it, both reported",
         "*.log\n/new/e\n",
         {{.path = u"new/a.txt"_s, .kind = unversioned}, newFolder},
         u"new/.gitignore|new/a.txt|new/build/z|new/y.log"_list},
        {"an empty folder is itself", "", {{.path = u"hollow"_s, .kind = unversioned}}, u"hollow"_list},
        {"a folder with metadata only is itself", "", {{.path = u"bare"_s, .kind = unversioned}}, u"bare"_list},
        {"a folder whose contents are all ignored is dropped",
         "*.o\nsub\n",
         {{.path = u"objects"_s, .kind = unversioned}},
         {}},
        {"a link to a folder is itself", "", {{.path = u"link"_s, .kind = unversioned}}, u"link"_list},
        {"a changed folder is not expanded", "", {{.path = u"dir"_s, .kind = modified}}, u"dir"_list},
        {"a folder rule spares a file", "f9/\n", {{.path = u"dir/f9"_s, .kind = modified}}, u"dir/f9"_list},
        {"names that look like syntax",
         "",
         {{.path = u"-x \"y\""_s, .kind = unversioned}, {.path = u"a\nb -> c"_s, .kind = unversioned}},
         u"-x \"y\"|a\nb -> c"_list},
    };
    for (const FilterRow &row : rows)
        check(row);
    EXPECT_EQ(pathsOf(statusItemsByApplyingIgnoreRules({newFolder}, tree.path(), {}, ExpandUnversioned::no)),
              u"new"_list);
}

TEST_F(StatusFilter, KeepsWhatTheToolSaidAndTellsWhereAFileWasFound) {
    const QList<WorkingCopyItem> items{
        {.path = u"./dir/f9"_s, .kind = modified, .revision = u"7"_s, .unversionedRoot = u"dir/"_s},
        {.path = u"objects/sub"_s, .kind = unversioned}};
    const QList<WorkingCopyItem> expected{
        {.path = u"dir/f9"_s, .kind = modified, .revision = u"7"_s, .unversionedRoot = u"dir"_s},
        {.path = u"objects/sub/b.o"_s, .kind = unversioned, .unversionedRoot = u"objects/sub"_s}};
    EXPECT_EQ(displayedStatusItems(items, tree.path(), RepositoryKind::git), expected);
}

} // namespace
} // namespace kestor
