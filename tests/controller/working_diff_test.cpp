#include "controller/arriving_diff.h"
#include "controller/tool_text.h"
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
    const auto preview = [](const QByteArray &printed, const QByteArray &errors) {
        return ArrivingDiff(u"a.bin"_s).diff({.stdoutData = printed, .stderrData = errors}).preview;
    };
    EXPECT_EQ(preview("Index: a.bin\nfile marked as a binary type.\n", ""), notice);
    EXPECT_EQ(preview("Binary files a/a.bin and b/a.bin differ\n", ""), notice);
    EXPECT_EQ(preview("+ny (BINARY OR UNREADABLE", ""), notice);
    EXPECT_EQ(preview({}, "svn: yes: Cannot display"), notice);
    EXPECT_EQ(preview("y binary\n file, cannot delay, binary or readable, marked as binary, Y", "y"), DiffPreview());
    EXPECT_EQ(ArrivingDiff(u"a.c"_s).diff({.stdoutData = "\r\n\n", .stderrData = "svn: not a working copy\n"}),
              (LoadedDiff{u"(no text diff)"_s, DiffPreview()}));
}

TEST(WorkingDiff, ArrivesInPiecesAsInOne) {
    const QByteArray flood = QByteArray(70000, 'x') + "\xC3\xBC\n";
    const Rows<QByteArray> rows{
        {"lines that are not all UTF-8", "\xEF\xBB\xBF+gr\xC3\xB6\xC3\x9F\n-gr\xF6\xDF\r\n\n" + flood + flood + " end"},
        {"no line end", QByteArray(300000, 'y')},
        {"line ends alone", QByteArray(10, '\n') + "x"},
    };
    for (const auto &[name, printed] : rows) {
        const QString whole = toolText(printed);
        for (const qsizetype size : {qsizetype(3), qsizetype(40000), printed.size()}) {
            ArrivingDiff diff(u"a.c"_s);
            for (qsizetype start = 0; start + size <= printed.size(); start += size) {
                if (diff.add(QByteArrayView(printed).sliced(start, size)) == ArrivingDiff::Next::decode ||
                    start % 9 == 0)
                    diff.decodeAdded();
            }
            EXPECT_EQ(diff.diff({.stdoutData = printed}).text, whole);
        }
        ArrivingDiff brokenOff(u"a.c"_s);
        brokenOff.add(printed);
        brokenOff.decodeAdded();
        EXPECT_EQ(brokenOff.diff({}).text, u"(no text diff)"_s);
    }
}

TEST(WorkingDiff, GoesToAWorkerWhenItIsLong) {
    ArrivingDiff diff(u"a.c"_s);
    EXPECT_EQ(diff.add("+short\n"), ArrivingDiff::Next::wait);
    const QByteArray flood(300000, '\n');
    EXPECT_EQ(diff.add(flood), ArrivingDiff::Next::decode);
    EXPECT_EQ(diff.add(flood), ArrivingDiff::Next::wait);
    diff.decodeAdded();
    EXPECT_EQ(diff.add(flood), ArrivingDiff::Next::decode);
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
