#include "support/window_test.h"
#include "ui/preview/audio_view.h"

#include <QAbstractButton>
#include <QSlider>
#include <QThread>

#include <atomic>

namespace kestor {
namespace {

/// Plays sounds of four seconds, as far as the test lets it.
class ScriptedBackend final : public AudioBackend {
public:
    explicit ScriptedBackend(AudioReport statusReport) : report(std::move(statusReport)) {}

    void open(const QByteArray &data, const QString &) override {
        status.length = 4000;
        become(data == "no device" ? AudioState::noDevice : data == "broken" ? AudioState::failed : AudioState::ready);
    }
    void play() override {
        become(AudioState::playing);
        status.position += 1000;
        report(status);
        if (status.position < status.length)
            return;
        status.position = 0;
        become(AudioState::ready);
    }
    void pause() override { become(AudioState::ready); }
    void seek(qint64 position) override {
        status.position = position;
        report(status);
    }

private:
    void become(AudioState state) {
        status.state = state;
        report(status);
    }

    AudioReport report;
    AudioStatus status{};
};

class AudioTest : public ::testing::Test {
protected:
    AudioTest() { view.show(); }

    bool comesToSay(const QString &text) {
        return waitUntil([&] { return says(view, text); });
    }
    QAbstractButton &button() { return *view.findChild<QAbstractButton *>(); }
    QSlider &slider() { return *view.findChild<QSlider *>(); }

    std::atomic<QThread *> usedThread = nullptr;
    AudioView view{nullptr, [this](AudioReport report) {
                       usedThread = QThread::currentThread();
                       return std::make_unique<ScriptedBackend>(std::move(report));
                   }};
};

TEST_F(AudioTest, PlaysPausesAndEndsAtTheBeginning) {
    view.open("sound", u"a.wav"_s);
    ASSERT_TRUE(comesToSay(u"0:00 / 0:04"_s));
    EXPECT_NE(usedThread, QThread::currentThread());
    button().click();
    ASSERT_TRUE(comesToSay(u"0:01 / 0:04"_s));
    EXPECT_EQ(button().accessibleName(), u"Pause"_s);
    EXPECT_EQ(slider().value(), 1000);
    button().click();
    ASSERT_TRUE(waitUntil([&] { return button().accessibleName() == u"Play"_s; }));
    slider().setSliderDown(true);
    button().click();
    ASSERT_TRUE(comesToSay(u"0:02 / 0:04"_s));
    EXPECT_EQ(slider().value(), 1000) << "it stays where it is held";
    slider().setSliderDown(false);
    button().click();
    ASSERT_TRUE(waitUntil([&] { return button().accessibleName() == u"Play"_s; }));
    slider().setSliderPosition(3000);
    slider().triggerAction(QAbstractSlider::SliderMove);
    ASSERT_TRUE(comesToSay(u"0:03 / 0:04"_s));
    button().click();
    ASSERT_TRUE(comesToSay(u"0:00 / 0:04"_s));
    EXPECT_EQ(button().accessibleName(), u"Play"_s);
}

TEST_F(AudioTest, SaysWhyNothingCanBeHeard) {
    view.open("no device", u"a.wav"_s);
    EXPECT_TRUE(comesToSay(u"No audio device."_s));
    EXPECT_TRUE(comesToSay(u"0:00 / 0:04"_s));
    EXPECT_FALSE(button().isEnabled());
    view.open("broken", u"a.wav"_s);
    EXPECT_TRUE(comesToSay(u"This file cannot be shown."_s));
    EXPECT_FALSE(slider().isVisible());
    view.open("sound", u"b.wav"_s);
    EXPECT_TRUE(waitUntil([&] { return button().isEnabled(); }));
}

TEST(Audio, WithoutAModuleEverySoundFails) {
    AudioPlayer player([](const AudioReport &) { return std::unique_ptr<AudioBackend>(); });
    player.open("sound", u"a.wav"_s);
    EXPECT_TRUE(waitUntil([&] { return player.status().state == AudioState::failed; }));
    player.play();
}

} // namespace
} // namespace kestor
