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

    TempTree tree;
};

TEST_F(StatusFilter, HidesAndExpands) {
    const WorkingCopyItem newFolder{.path = u"new/"_s, .kind = unversioned};
    const Rows<QByteArray, QList<WorkingCopyItem>, QStringList> rows{
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
    for (const auto &[name, rules, items, expected] : rows) {
        tree.write(u".gitignore"_s, rules);
        FolderReader folders(tree.path(), u".svn"_s);
        const QList<WorkingCopyItem> shown = displayedStatusItems(items, folders);
        EXPECT_EQ(pathsOf(shown), expected);
        // The two steps on their own, each of which reads the folders.
        constexpr ExpandUnversioned expand = ExpandUnversioned::yes;
        const IgnoreRules found = ignoreRulesForStatusItems(items, tree.path(), expand);
        EXPECT_EQ(statusItemsByApplyingIgnoreRules(items, tree.path(), found, expand), shown);
    }
    EXPECT_EQ(pathsOf(statusItemsByApplyingIgnoreRules({newFolder}, tree.path(), {}, ExpandUnversioned::no)),
              u"new"_list);
}

} // namespace
} // namespace kestor
