#include "support/environment_variable.h"
#include "support/temp_tree.h"
#include "support/test.h"
#include "tools/temporary_folder.h"

#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>
#include <unistd.h>

namespace kestor {
namespace {

const QString id = u"7d2f1c54-0d4b-4b8e-9f7a-0123456789ab"_s;

unsigned modeOf(const QString &path) {
    struct stat status {};
    ::lstat(QFile::encodeName(path).constData(), &status);
    return status.st_mode & 07777U;
}

TEST(TemporaryFolder, IsPrivateAndGoesWithItsContent) {
    TempTree outside;
    outside.write(u"precious"_s);
    QString path;
    {
        const TemporaryFolder folder;
        path = folder.path();
        EXPECT_EQ(modeOf(path), 0700U);
        QFile::link(outside.path(), path + u"/link"_s);
    }
    EXPECT_FALSE(QFileInfo::exists(path));
    EXPECT_TRUE(outside.exists(u"precious"_s));
}

TEST(TemporaryFolder, OnlyWhatIsSurelyAbandonedIsRemoved) {
    const Rows<QString, mode_t, bool> rows{
        {"of a run that died", u"KestorSVN-"_s + id, 0700, true},
        {"a hidden one", u".KestorSVN-"_s + id, 0700, true},
        {"others may look into it", u"KestorSVN-"_s + id, 0755, false},
        {"another name", u"KestorSVN-notes"_s, 0700, false},
        {"an id as no run writes it", u"KestorSVN-"_s + id.toUpper(), 0700, false},
        {"more behind the id", u"KestorSVN-"_s + id + u"-kept"_s, 0700, false},
        {"the null id", u"KestorSVN-00000000-0000-0000-0000-000000000000"_s, 0700, false},
    };
    for (const auto &[name, folder, mode, isRemoved] : rows) {
        TempTree tree;
        tree.write(folder + u"/tree/file"_s);
        ::chmod(QFile::encodeName(tree.path(folder)).constData(), mode);
        removeAbandonedFolders(tree.path());
        removeAbandonedHiddenFolders(tree.path());
        EXPECT_EQ(tree.entries().size(), isRemoved ? 0 : 3);
    }
}

TEST(TemporaryFolder, LivingOnesLinksAndThoseOfOthersStay) {
    TempTree tree;
    tree.write(u"target/file"_s);
    ::chmod(QFile::encodeName(tree.path(u"target"_s)).constData(), 0700);
    QFile::link(tree.path(u"target"_s), tree.path(u"KestorSVN-"_s + id));
    const EnvironmentVariable variable("TMPDIR", QFile::encodeName(tree.path()));
    const TemporaryFolder living;
    const QString others = u"KestorSVN-8d2f1c54-0d4b-4b8e-9f7a-0123456789ab"_s;
    if (::geteuid() == 0) {
        tree.makeDirectory(others);
        ::chmod(QFile::encodeName(tree.path(others)).constData(), 0700);
        ASSERT_EQ(::chown(QFile::encodeName(tree.path(others)).constData(), 65534, 65534), 0);
    }
    const QStringList all = tree.entries();
    removeAbandonedFolders(tree.path());
    EXPECT_EQ(tree.entries(), all);
    EXPECT_TRUE(QFileInfo(living.path()).isDir());
}

} // namespace
} // namespace kestor
