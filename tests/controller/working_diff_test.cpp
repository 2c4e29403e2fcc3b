#include "controller/working_diff.h"
#include "support/repositories.h"
#include "support/test.h"

#include <sys/stat.h>

namespace kestor {
namespace {

TEST(WorkingDiff, SaysWhyAnUnversionedPathHasNoDiff) {
    TempTree tree;
    tree.makeDirectory(u"folder"_s);
    tree.writeAll({{u"latin1.txt"_s, "M\xFCller\n"}});
    ASSERT_EQ(mkfifo(qPrintable(tree.path(u"pipe"_s)), 0600), 0);
    const Rows<QString> rows{
        {"gone", u"(file not found)"_s},
        {"folder", u"(unversioned directory)"_s},
        {"latin1.txt", u"(binary or unreadable file)"_s},
        {"pipe", u"(binary or unreadable file)"_s},
    };
    for (const auto &[path, text] : rows)
        EXPECT_EQ(unversionedDiff(QString::fromUtf8(path), tree.path()).text, text);
}

TEST(WorkingDiff, BelievesTheToolsWordsAboutBinaryFiles) {
    const DiffPreview notice{DiffPreviewKind::binary, u"a.bin"_s, {}, u"Unknown file type."_s, {}, {}};
    EXPECT_EQ(loadedDiff(u"a.bin"_s, "Index: a.bin\nCannot display: file marked as a binary type.\n", "").preview,
              notice);
    EXPECT_EQ(loadedDiff(u"a.bin"_s, "Binary files a/a.bin and b/a.bin differ\n", "").preview, notice);
    EXPECT_EQ(loadedDiff(u"a.bin"_s, "", "svn: Cannot display it\n").preview, notice);
    EXPECT_EQ(loadedDiff(u"a.c"_s, "\r\n\n", "svn: not a working copy\n"),
              (LoadedDiff{u"(no text diff)"_s, DiffPreview()}));
}

TEST(WorkingDiff, IsSvnsOwnWhateverTheUsersConfigurationNames) {
    SvnFixture repository;
    repository.commit({{u"a.c"_s, "a\n"}});
    repository.write(u"a.c"_s, "a \n");
    repository.tree.write(u"settings/config"_s, "[helpers]\ndiff-cmd = false\ndiff-extensions = -w\n");
    const QStringList settings{u"--config-dir"_s, repository.tree.path(u"settings"_s)};
    const QByteArray printed =
        repository.svn(settings + workingDiffArguments(RepositoryKind::svn, std::nullopt, QString()));
    EXPECT_TRUE(printed.contains("\n+a \n")) << printed.toStdString();
}

} // namespace
} // namespace kestor
