#include "support/window_test.h"
#include "ui/look/elided_path.h"
#include "ui/look/home_path.h"

namespace kestor {
namespace {

/// Every UTF-16 unit is one pixel wide.
double unitWidth(const QString &text) {
    return static_cast<double>(text.size());
}

TEST(ElidedPath, LosesFoldersFromTheMiddleAndThenTheMiddleOfTheName) {
    const QString longPath = u"src/net/tls/certs/embedded/anchors.inc"_s;
    const Rows<QString, double, QString, QString> rows{
        {"all of it fits exactly", longPath, 38, u"src/net/tls/certs/embedded/"_s, u"anchors.inc"_s},
        {"one folder leaves", longPath, 37, u"src/net/…/certs/embedded/"_s, u"anchors.inc"_s},
        {"first and last folder stay", longPath, 29, u"src/…/embedded/"_s, u"anchors.inc"_s},
        {"the first folder stays longest", longPath, 25, u"src/…/"_s, u"anchors.inc"_s},
        {"only the name", longPath, 13, u"…/"_s, u"anchors.inc"_s},
        {"the name loses its middle", longPath, 12, u"…/"_s, u"ancho….inc"_s},
        {"the extension is kept to the last", longPath, 7, u"…/"_s, u"….inc"_s},
        {"a long ending is no extension", u"minutes.of the last meeting"_s, 9, u""_s, u"minu…ting"_s},
        {"a leading dot starts no extension", u".bashrc"_s, 5, u""_s, u".b…rc"_s},
        {"no half of a character", u"a😀😀😀😀b.c"_s, 7, u""_s, u"a😀…b.c"_s},
        {"a slash at the end belongs to the name", u"a/build/"_s, 8, u"a/"_s, u"build/"_s},
    };
    for (const auto &[name, path, width, folder, file] : rows) {
        const ElidedPath shown = elidedPath(path, width, unitWidth);
        EXPECT_EQ(shown.folder, folder);
        EXPECT_EQ(shown.name, file);
    }
}

TEST(HomePath, IsShortForWhatLiesInTheHomeFolder) {
    const Rows<QString, QString> rows{{"the folder itself", u"/home/me"_s, u"~"_s},
                                      {"below it", u"/home/me/a b"_s, u"~/a b"_s},
                                      {"a name that begins alike", u"/home/me2/a"_s, u"/home/me2/a"_s}};
    for (const auto &[name, path, shown] : rows)
        EXPECT_EQ(homeRelativePath(path, u"/home/me"_s), shown);
}

} // namespace
} // namespace kestor
