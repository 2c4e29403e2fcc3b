#include "rules/status_filter.h"
#include "support/temp_tree.h"
#include "support/test.h"

namespace kestor {
namespace {

/// "M path", "? path" or "I path" of every item; a blank for none of these.
QList<WorkingCopyItem> itemsOf(const QStringList &lines) {
    const QMap<QChar, SVNStatusKind> kinds{
        {u'M', SVNStatusKind::modified}, {u'?', SVNStatusKind::unversioned}, {u'I', SVNStatusKind::ignored}};
    QList<WorkingCopyItem> items;
    for (const QString &line : lines)
        items.append({.path = line.sliced(2), .kind = kinds.value(line[0], WorkingCopyItem().kind)});
    return items;
}

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
    const QStringList newFolder = u"? new/"_list;
    const Rows<QByteArray, QStringList, QStringList> rows{
        {"sorted like a file manager", "", u"M dir/f10|M dir/f9"_list, u"dir/f9|dir/f10"_list},
        {"the first of two spellings stays", "", u"M dir/f9|? dir//f9|  ."_list, u"dir/f9"_list},
        {"versioned changes are hidden too", "f9\n", u"M dir/f9"_list, {}},
        {"an item that the tool ignores", "", u"I dir/f9"_list, {}},
        {"an item that a rule brings back", "!f9\n", u"I dir/f9"_list, u"dir/f9"_list},
        {"a rule file inside the folder counts", "", newFolder,
         u"new/.gitignore|new/a.txt|new/build/z|new/e|new/y.log"_list},
        {"a rule file inside brings back what an outer one ignores", "*.log\nbuild\na.txt\n", newFolder,
         u"new/.gitignore|new/build/z|new/e|new/y.log"_list},
        {"an ignored folder", "new/\n", newFolder, {}},
        {"a folder and a file in it, both reported", "*.log\n/new/e\n", u"? new/a.txt|? new/"_list,
         u"new/.gitignore|new/a.txt|new/build/z|new/y.log"_list},
        {"an empty folder is itself", "", u"? hollow"_list, u"hollow"_list},
        {"a folder with metadata only is itself", "", u"? bare"_list, u"bare"_list},
        {"a folder whose contents are all ignored is dropped", "*.o\nsub\n", u"? objects"_list, {}},
        {"a link to a folder is itself", "", u"? link"_list, u"link"_list},
        {"a changed folder is not expanded", "", u"M dir"_list, u"dir"_list},
        {"a folder rule spares a file", "f9/\n", u"M dir/f9"_list, u"dir/f9"_list},
        {"names that look like syntax", "", u"? -x \"y\"|? a\nb -> c"_list, u"-x \"y\"|a\nb -> c"_list},
    };
    for (const auto &[name, rules, lines, expected] : rows) {
        const QList<WorkingCopyItem> items = itemsOf(lines);
        tree.write(u".gitignore"_s, rules);
        FolderReader folders(tree.path(), u".svn"_s);
        const QList<WorkingCopyItem> shown = displayedStatusItems(items, folders);
        EXPECT_EQ(pathsOf(shown), expected);
        // The two steps on their own, each of which reads the folders.
        constexpr ExpandUnversioned expand = ExpandUnversioned::yes;
        const IgnoreRules found = ignoreRulesForStatusItems(items, tree.path(), expand);
        EXPECT_EQ(statusItemsByApplyingIgnoreRules(items, tree.path(), found, expand), shown);
    }
    EXPECT_EQ(pathsOf(statusItemsByApplyingIgnoreRules(itemsOf(newFolder), tree.path(), {}, ExpandUnversioned::no)),
              u"new"_list);
}

} // namespace
} // namespace kestor
