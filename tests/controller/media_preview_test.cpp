#include "controller/media_preview.h"
#include "model/size_text.h"
#include "support/app_fixture.h"
#include "support/printers.h"
#include "support/repositories.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace kestor {
namespace {

using testing::AppFixture;
using testing::awaited;
using testing::GitFixture;
using testing::SvnFixture;

const QByteArray before("\x89PNG\r\n\x1a\n\0before", 15);
const QByteArray after("\x89PNG\r\n\x1a\n\0after", 14);

/// "image old 15 new -", "binary", ...: kind and bytes of what the pane shows of `path`.
std::string shown(AppFixture &f, const QString &path) {
    f.app.selectedChangeID = path;
    awaited(f.app.selectedChangeChanged());
    const DiffPreview &preview = f.app.diffPreview.value();
    if (preview.kind == DiffPreviewKind::empty)
        return "text";
    EXPECT_EQ(preview.path, path);
    if (preview.kind == DiffPreviewKind::binary)
        return preview.message.toStdString();
    const auto name = [](const std::optional<QByteArray> &data) -> std::string {
        if (!data)
            return "-";
        return *data == before ? "before" : *data == after ? "after" : *data == "" ? "empty" : "other";
    };
    return name(preview.oldData) + ' ' + name(preview.newData);
}

TEST(MediaPreview, KindsGoByTheExtension) {
    struct Row {
        const char *path;
        std::optional<DiffPreviewKind> kind;
    };
    constexpr auto image = DiffPreviewKind::image;
    constexpr auto font = DiffPreviewKind::font;
    constexpr auto audio = DiffPreviewKind::audio;
    const Row rows[] = {
        {"assets/Logo.PNG", image},
        {"a.svg", image},
        {"icon@2x.jpeg", image},
        {"a.b.webp", image},
        {"fonts/A.ttf", font},
        {"A.OTF", font},
        {"A.otc", font},
        {"A.dfont", font},
        {"A.woff2", font},
        {"A.pfb", font},
        {"chime.ogg", audio},
        {"a.wav", audio},
        {"a.mp3", audio},
        {"main.cpp", {}},
        {"png", {}},
        {"images.png/readme", {}},
        {"a.ts", {}},
        {"clip.mp4", {}},
        {"trailing.", {}},
        {"data.bin", {}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.path);
        EXPECT_EQ(mediaPreviewKind(QString::fromUtf8(row.path)), row.kind);
    }
}

TEST(MediaPreview, TooLargeOrAbsentVersionsAreNotShown) {
    EXPECT_EQ(mediaPreview(DiffPreviewKind::image, u"a.png"_s, std::nullopt, std::nullopt), std::nullopt);
    const QByteArray huge(largestPreviewedFile + 1, '\0');
    const std::optional<DiffPreview> notice = mediaPreview(DiffPreviewKind::image, u"a.png"_s, huge, after);
    ASSERT_TRUE(notice);
    EXPECT_EQ(notice->kind, DiffPreviewKind::binary);
    EXPECT_EQ(notice->message, u"Too large to be shown (268 MB)."_s);
    EXPECT_FALSE(notice->oldData || notice->newData);
}

TEST(MediaPreview, OfASubversionProjectHasTheVersionsThatExist) {
    SvnFixture repository;
    for (const QString &name : {u"modified.png"_s, u"deleted.png"_s, u"missing.png"_s, u"icon@2x.png"_s, u"-dash.png"_s,
                                u"emptied.png"_s, u"replaced.png"_s, u"linked.png"_s, u"data.bin"_s, u"text.c"_s})
        repository.write(name, before);
    repository.commitAll(u"first"_s);
    for (const QString &name :
         {u"modified.png"_s, u"icon@2x.png"_s, u"-dash.png"_s, u"added.png"_s, u"new.png"_s, u"data.bin"_s})
        repository.write(name, after);
    repository.write(u"emptied.png"_s, "");
    repository.tree.makeDirectory(u"wc/"_s + u"folder.png"_s);
    repository.svn({u"add"_s, u"added.png"_s});
    repository.svn({u"delete"_s, u"deleted.png"_s, u"replaced.png"_s});
    repository.write(u"replaced.png"_s, after);
    repository.svn({u"add"_s, u"replaced.png"_s});
    QFile::remove(repository.path(u"missing.png"_s));
    QFile::remove(repository.path(u"linked.png"_s));
    QFile::link(repository.path(u"modified.png"_s), repository.path(u"linked.png"_s));
    QFile::link(repository.path(u"modified.png"_s), repository.path(u"link.png"_s));
    AppFixture f;
    f.open(repository.path(), RepositoryKind::svn);
    struct Row {
        const char *path;
        std::string shown;
    };
    const Row rows[] = {
        {"modified.png", "before after"}, {"icon@2x.png", "before after"},    {"-dash.png", "before after"},
        {"emptied.png", "before empty"},  {"replaced.png", "- after"},        {"added.png", "- after"},
        {"new.png", "- after"},           {"deleted.png", "before -"},        {"missing.png", "before -"},
        {"linked.png", "before -"},       {"link.png", "Unknown file type."}, {"data.bin", "Unknown file type."},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.path);
        EXPECT_EQ(shown(f, QString::fromUtf8(row.path)), row.shown);
    }
    EXPECT_EQ(f.alertText(), QString());
}

TEST(MediaPreview, OfAGitProjectFollowsRenamesAndDoesWithoutHead) {
    GitFixture repository;
    repository.write(u"first.png"_s, after);
    repository.write(u"logo.svg"_s, "<svg/>\n");
    repository.git({u"add"_s, u"first.png"_s});
    AppFixture f;
    f.open(repository.path(), RepositoryKind::git);
    EXPECT_EQ(shown(f, u"first.png"_s), "- after");
    EXPECT_EQ(shown(f, u"logo.svg"_s), "- other");
    EXPECT_TRUE(f.app.diffText.value().endsWith(u"+<svg/>"_s)) << qPrintable(f.app.diffText.value());

    repository.write(u"sub/größe.png"_s, before);
    repository.write(u"old.png"_s, before);
    repository.write(u"deleted.png"_s, after);
    repository.commitAll(u"first"_s);
    repository.write(u"sub/größe.png"_s, after);
    repository.git({u"mv"_s, u"old.png"_s, u"sub/new.png"_s});
    repository.git({u"rm"_s, u"-q"_s, u"deleted.png"_s});
    awaited(f.app.refreshStatus());
    EXPECT_EQ(shown(f, u"sub/größe.png"_s), "before after");
    EXPECT_EQ(shown(f, u"sub/new.png"_s), "before before");
    EXPECT_EQ(shown(f, u"deleted.png"_s), "after -");
}

TEST(MediaPreview, SizesAreShort) {
    struct Row {
        qint64 bytes;
        const char *text;
    };
    const Row rows[] = {
        {0, "0 bytes"},      {1, "1 byte"},       {999, "999 bytes"},        {1000, "1.0 KB"},
        {3449, "3.4 KB"},    {9949, "9.9 KB"},    {9950, "10 KB"},           {183'600, "184 KB"},
        {999'499, "999 KB"}, {999'500, "1.0 MB"}, {1'400'000'000, "1.4 GB"}, {5'000'000'000'000'000, "5,000 TB"}};
    for (const Row &row : rows)
        EXPECT_EQ(sizeText(row.bytes), QString::fromUtf8(row.text));
}

} // namespace
} // namespace kestor
