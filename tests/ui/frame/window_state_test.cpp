#include "support/window_test.h"
#include "ui/frame/window_state.h"

#include <QSettings>

namespace kestor {
namespace {

TEST(WindowState, ComesBackAsItWasSaved) {
    const TempTree tree;
    const QString file = tree.path(u"window.conf"_s);
    const FormChoices forms{{DiffPreviewKind::image, DetailForm::text}, {DiffPreviewKind::audio, DetailForm::preview}};
    const QByteArray geometry("\0\xff geometry", 11);
    const QRect frame(-1900, 20, 1000, 700);
    const HistorySizes sizes{300, 800, 350};
    const WindowState state{geometry, frame, 300, true, 500, 700, 130, 220, sizes, 3, forms};
    {
        QSettings settings(file, QSettings::IniFormat);
        saveWindowState(settings, state);
    }
    const QSettings settings(file, QSettings::IniFormat);
    EXPECT_EQ(loadWindowState(settings), state);
}

TEST(WindowState, BrokenOrOddValuesAreTheDefaults) {
    WindowState bounded;
    bounded.sidebarWidth = 360;
    bounded.listWidth = 280;
    const Rows<QVariant, WindowState> rows{
        {"not JSON", QByteArray("\x01\x02{{"), {}},
        {"forms that do not exist", QByteArray(R"({"forms":{"image":"song","film":"text"}})"), {}},
        {"members of other types",
         QByteArray(R"({"sidebarWidth":"wide","frame":7,"sidebarHidden":[],"geometry":1})"),
         {}},
        {"sizes out of bounds", QByteArray(R"({"sidebarWidth":99999,"listWidth":-5})"), bounded},
    };
    for (const auto &[name, stored, expected] : rows) {
        const TempTree tree;
        QSettings settings(tree.path(u"window.conf"_s), QSettings::IniFormat);
        settings.setValue(u"KestorSVN.window"_s, stored);
        EXPECT_EQ(loadWindowState(settings), expected);
    }
}

TEST(WindowState, AWindowOffEveryScreenIsCentered) {
    const QRect screen(0, 0, 1920, 1080);
    const Rows<QRect, QList<QRect>, std::optional<QRect>> rows{
        {"in view", QRect(100, 100, 800, 600), {screen}, std::nullopt},
        {"on the second screen", QRect(2000, 100, 800, 600), {screen, QRect(1920, 0, 1920, 1080)}, std::nullopt},
        {"its screen is gone", QRect(2000, 100, 800, 600), {screen}, QRect(560, 240, 800, 600)},
        {"only a sliver in view", QRect(1900, 100, 800, 600), {screen}, QRect(560, 240, 800, 600)},
        {"larger than the screen", QRect(5000, 0, 4000, 3000), {screen}, screen},
        {"never saved", QRect(), {screen}, std::nullopt},
    };
    for (const auto &[name, frame, screens, expected] : rows)
        EXPECT_EQ(recoveredFrame(frame, screens), expected);
}

} // namespace
} // namespace kestor
