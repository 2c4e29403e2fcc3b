#include "controller/git_status.h"
#include "controller/status_rows.h"
#include "support/printers.h"
#include "support/repositories.h"

#include <algorithm>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kestor {
namespace {

using testing::GitFixture;

TEST(GitStatus, ReadsTheNamesThatRealGitQuotes) {
    const QStringList names{u"plain.txt"_s,    u"with space.txt"_s, u"größe.txt"_s,    u"a -> b.txt"_s,
                            u"say \"hi\".c"_s, u"tab\there.c"_s,    u"two\nlines.c"_s, u"back\\slash.c"_s,
                            u"-dash@2x.png"_s, u"bell\a7.c"_s};
    GitFixture repository;
    for (const QString &name : names)
        repository.write(name);
    const QByteArray output = repository.git(
        {u"-c"_s, u"core.quotePath=false"_s, u"status"_s, u"--porcelain=v1"_s, u"--untracked-files=normal"_s});
    const StatusRows rows = statusRows(RepositoryKind::git, repository.path(), output);
    QStringList read;
    for (const WorkingCopyItem &item : rows.items)
        read.append(item.path);
    QStringList expected = names;
    std::sort(read.begin(), read.end());
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(read, expected);
}

TEST(GitStatus, KeepsTheOldNameOfARename) {
    GitFixture repository;
    repository.write(u"old name.txt"_s, "one\ntwo\nthree\n");
    repository.write(u"plain.txt"_s, "four\nfive\nsix\n");
    repository.commitAll(u"first"_s);
    repository.git({u"mv"_s, u"old name.txt"_s, u"new -> name.txt"_s});
    repository.git({u"mv"_s, u"plain.txt"_s, u"moved.txt"_s});
    const QByteArray output = repository.git({u"status"_s, u"--porcelain=v1"_s});
    const GitStatus status = gitStatus(QString::fromUtf8(output));
    EXPECT_EQ(status.facts.oldNames,
              (QHash<QString, QString>{{u"new -> name.txt"_s, u"old name.txt"_s}, {u"moved.txt"_s, u"plain.txt"_s}}));
    ASSERT_EQ(status.items.size(), 2);
    EXPECT_EQ(status.items[0].kind, SVNStatusKind::replaced);
}

} // namespace
} // namespace kestor
