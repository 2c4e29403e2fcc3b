#include "support/printers.h"
#include "ui/frame/header_text.h"
#include "ui/look/home_path.h"

#include <gtest/gtest.h>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;

TEST(HeaderText, NamesTheLineOfDevelopment) {
    struct Row {
        const char *name;
        RepositoryKind kind;
        RepositoryInfo info;
        QString expected;
    };
    const Row rows[] = {
        {"nothing is known yet", RepositoryKind::svn, {}, {}},
        {"relative URL", RepositoryKind::svn, {.url = u"file:///r/trunk"_s, .relativeURL = u"^/trunk"_s}, u"^/trunk"_s},
        {"whole URL of an old tool", RepositoryKind::svn, {.url = u"file:///r/trunk"_s}, u"file:///r/trunk"_s},
        {"branch, not the remote",
         RepositoryKind::git,
         {.url = u"git@host:r"_s, .workingRevision = u"main"_s},
         u"main"_s},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(branchText(row.kind, row.info), row.expected);
    }
}

TEST(HeaderText, ShortensTheHomeFolderOnly) {
    struct Row {
        const char *name;
        QString path;
        QString expected;
    };
    const Row rows[] = {
        {"below home", u"/home/ann/work/a"_s, u"~/work/a"_s},
        {"home itself", u"/home/ann"_s, u"~"_s},
        {"a name that begins alike", u"/home/anna/work"_s, u"/home/anna/work"_s},
        {"elsewhere", u"/srv/a"_s, u"/srv/a"_s},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(homeRelativePath(row.path, u"/home/ann"_s), row.expected);
    }
}

TEST(HeaderText, ThePathGivesWayBeforeTheBranch) {
    struct Row {
        const char *name;
        int available;
        HeaderWidths expected;
    };
    const Row rows[] = {
        {"room for both", 400, {100, 200}},
        {"the path shrinks", 250, {100, 150}},
        {"a path too short to read leaves", 140, {100, 0}},
        {"then the branch shrinks", 60, {60, 0}},
        {"no room at all", -20, {0, 0}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        const HeaderWidths widths = headerWidths(row.available, {100, 200});
        EXPECT_EQ(widths.branch, row.expected.branch);
        EXPECT_EQ(widths.path, row.expected.path);
    }
}

} // namespace
} // namespace kestor
