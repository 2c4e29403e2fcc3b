#include "controller/git_status.h"
#include "controller/status_rows.h"
#include "support/app_test.h"

#include <algorithm>

namespace kestor {
namespace {

TEST(GitStatus, ReadsTheNamesThatRealGitQuotes) {
    const QStringList names = u"plain.txt|with space.txt|größe.txt|a -> b.txt|say \"hi\".c|tab\there.c|"
                              "two\nlines.c|back\\slash.c|-dash@2x.png|bell\a7.c"_list;
    GitFixture repository;
    for (const QString &name : names)
        repository.write(name);
    const QByteArray output =
        repository.git(u"-c|core.quotePath=false|status|--porcelain=v1|--untracked-files=normal"_list);
    const StatusRows rows = statusRows(RepositoryKind::git, repository.path(), output);
    QStringList read;
    for (const WorkingCopyItem &item : rows.items)
        read.append(item.path);
    QStringList expected = names;
    std::sort(read.begin(), read.end());
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(read, expected);
}

} // namespace
} // namespace kestor
