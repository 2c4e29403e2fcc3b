#include "controller/media_preview.h"
#include "model/size_text.h"
#include "support/app_test.h"

namespace kestor {
namespace {

const QByteArray imageBefore("\x89PNG\r\n\x1a\n\0before", 15);
const QByteArray imageAfter("\x89PNG\r\n\x1a\n\0after", 14);

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
        return *data == imageBefore ? "before" : *data == imageAfter ? "after" : *data == "" ? "empty" : "other";
    };
    return name(preview.oldData) + ' ' + name(preview.newData);
}

TEST(MediaPreview, TooLargeOrAbsentVersionsAreNotShown) {
    EXPECT_EQ(mediaPreview(DiffPreviewKind::image, u"a.png"_s, std::nullopt, std::nullopt), std::nullopt);
    const QByteArray huge(largestPreviewedFile + 1, '\0');
    const std::optional<DiffPreview> notice = mediaPreview(DiffPreviewKind::image, u"a.png"_s, huge, imageAfter);
    ASSERT_TRUE(notice);
    EXPECT_EQ(notice->kind, DiffPreviewKind::binary);
    EXPECT_EQ(notice->message, u"Too large to be shown (268 MB)."_s);
    EXPECT_FALSE(notice->oldData || notice->newData);
}

TEST(MediaPreview, OfASubversionProjectHasTheVersionsThatExist) {
    SvnFixture repository;
    repository.commit(u"modified.png|deleted.png|missing.png|icon@2x.png|-dash.png|emptied.png|"
                      "replaced.png|linked.png|data.bin|text.c"_list,
                      imageBefore);
    repository.writeAll(u"modified.png|icon@2x.png|-dash.png|added.png|new.png|data.bin"_list, imageAfter);
    repository.write(u"emptied.png"_s, "");
    repository.tree.makeDirectory(u"wc/"_s + u"folder.png"_s);
    repository.svn(u"add|added.png"_list);
    repository.svn(u"delete|deleted.png|replaced.png"_list);
    repository.write(u"replaced.png"_s, imageAfter);
    repository.svn(u"add|replaced.png"_list);
    QFile::remove(repository.path(u"missing.png"_s));
    QFile::remove(repository.path(u"linked.png"_s));
    QFile::link(repository.path(u"modified.png"_s), repository.path(u"linked.png"_s));
    QFile::link(repository.path(u"modified.png"_s), repository.path(u"link.png"_s));
    AppFixture f(repository);
    const Rows<std::string> rows{
        {"modified.png", "before after"}, {"icon@2x.png", "before after"},    {"-dash.png", "before after"},
        {"emptied.png", "before empty"},  {"replaced.png", "- after"},        {"added.png", "- after"},
        {"new.png", "- after"},           {"deleted.png", "before -"},        {"missing.png", "before -"},
        {"linked.png", "before -"},       {"link.png", "Unknown file type."}, {"data.bin", "Unknown file type."},
    };
    for (const auto &[path, expected] : rows)
        EXPECT_EQ(shown(f, QString::fromUtf8(path)), expected);
    EXPECT_EQ(f.alertText(), QString());
}

TEST(MediaPreview, OfAGitProjectFollowsRenamesAndDoesWithoutHead) {
    GitFixture repository;
    repository.writeAll({{u"first.png"_s, imageAfter}, {u"logo.svg"_s, "<svg/>\n"}});
    repository.git(u"add|first.png"_list);
    AppFixture f(repository);
    EXPECT_EQ(shown(f, u"first.png"_s), "- after");
    EXPECT_EQ(shown(f, u"logo.svg"_s), "- other");
    EXPECT_TRUE(f.app.diffText.value().endsWith(u"+<svg/>"_s)) << qPrintable(f.app.diffText.value());

    repository.commit({{u"sub/größe.png"_s, imageBefore}, {u"old.png"_s, imageBefore}, {u"deleted.png"_s, imageAfter}});
    repository.write(u"sub/größe.png"_s, imageAfter);
    repository.git(u"mv|old.png|sub/new.png"_list);
    repository.git(u"rm|-q|deleted.png"_list);
    awaited(f.app.refreshStatus());
    EXPECT_EQ(shown(f, u"sub/größe.png"_s), "before after");
    EXPECT_EQ(shown(f, u"sub/new.png"_s), "before before");
    EXPECT_EQ(shown(f, u"deleted.png"_s), "after -");
}

} // namespace
} // namespace kestor
