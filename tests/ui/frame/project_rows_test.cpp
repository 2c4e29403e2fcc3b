#include "support/window_test.h"
#include "ui/frame/project_rows.h"

namespace kestor {
namespace {

QStringList shown(const QString &filter) {
    const QList<Project> projects{
        {QUuid::createUuid(), u"firmware"_s, u"/work/alpha/firmware"_s, RepositoryKind::svn},
        {QUuid::createUuid(), u"firmware"_s, u"/work/beta/firmware"_s, RepositoryKind::git},
        {QUuid::createUuid(), u"web shop"_s, u"/work/beta/web shop"_s, RepositoryKind::git},
    };
    QStringList texts;
    for (const ProjectRow &row : projectRows(projects, ListFilter(filter)))
        texts.append(u"%1|%2|%3"_s.arg(row.name, row.parentFolder, row.kind));
    return texts;
}

TEST(ProjectRows, TellEqualNamesApartAndFollowTheFilter) {
    const Rows<QString, QStringList> rows{
        {"all", {}, {u"firmware|alpha|SVN"_s, u"firmware|beta|Git"_s, u"web shop||Git"_s}},
        {"words in any order and case", u"SHOP we"_s, {u"web shop||Git"_s}},
        {"the folder is not part of the name", u"beta"_s, {}},
    };
    for (const auto &[name, filter, expected] : rows)
        EXPECT_EQ(shown(filter), expected);
}

} // namespace
} // namespace kestor
