// The sound module: what plays sounds by the system's media library, in a library of its own, which is loaded with the
// first sound.

#include "ui/preview/audio_backend.h"

#include <QAudioDevice>
#include <QAudioOutput>
#include <QBuffer>
#include <QMediaDevices>
#include <QMediaPlayer>
#include <QUrl>

#include <utility>

namespace kestor {
namespace {

class MediaBackend final : public AudioBackend {
public:
    explicit MediaBackend(AudioReport statusReport) : report(std::move(statusReport)) {
        player.setAudioOutput(&output);
        const auto changed = [this] {
            publish();
        };
        QObject::connect(&player, &QMediaPlayer::mediaStatusChanged, &player, changed);
        QObject::connect(&player, &QMediaPlayer::errorOccurred, &player, changed);
        QObject::connect(&player, &QMediaPlayer::durationChanged, &player, changed);
        QObject::connect(&player, &QMediaPlayer::positionChanged, &player, changed);
        QObject::connect(&player, &QMediaPlayer::playbackStateChanged, &player, changed);
    }

    /// The player reports its own end.
    ~MediaBackend() override { player.disconnect(); }
    Q_DISABLE_COPY_MOVE(MediaBackend)

    void open(const QByteArray &data, const QString &name) override {
        source.setData(data);
        source.open(QIODevice::ReadOnly);
        player.setSourceDevice(&source, QUrl::fromLocalFile(name));
    }

    /// Without a device Qt's FFmpeg backend crashes when it is to play.
    void play() override {
        if (!QMediaDevices::audioOutputs().isEmpty())
            player.play();
        publish();
    }
    void pause() override { player.pause(); }
    void seek(qint64 position) override { player.setPosition(position); }

private:
    AudioState state() const {
        if (player.error() != QMediaPlayer::NoError || player.mediaStatus() == QMediaPlayer::InvalidMedia)
            return AudioState::failed;
        if (player.mediaStatus() <= QMediaPlayer::LoadingMedia)
            return AudioState::loading;
        if (QMediaDevices::audioOutputs().isEmpty())
            return AudioState::noDevice;
        return player.playbackState() == QMediaPlayer::PlayingState ? AudioState::playing : AudioState::ready;
    }
    void publish() {
        const bool ended = player.mediaStatus() == QMediaPlayer::EndOfMedia;
        report({state(), player.duration(), ended ? 0 : player.position()});
    }

    AudioReport report;
    QBuffer source;
    QAudioOutput output;
    QMediaPlayer player;
};

} // namespace
} // namespace kestor

extern "C" Q_DECL_EXPORT kestor::AudioBackend *kestorAudioBackend(const kestor::AudioReport &report) {
    return new kestor::MediaBackend(report);
}
