#pragma once

#include "ui/preview/audio_player.h"

#include <QWidget>

class QAbstractButton;
class QLabel;
class QSlider;

namespace kestor {

/// Play button, position and time of a sound.
class AudioView final : public QWidget {
    Q_OBJECT

public:
    explicit AudioView(QWidget *parent = nullptr, AudioBackendFactory makeBackend = moduleAudioBackend);

    /// Takes the bytes of a sound file; it does not play yet.
    void open(const QByteArray &sound, const QString &name);
    /// Ends what is playing.
    void close() { player.close(); }

protected:
    void changeEvent(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void showStatus();
    void togglePlaying();
    void applyLook();

    AudioPlayer player;
    QAbstractButton *button;
    QSlider *position;
    QLabel *time;
    QLabel *note; ///< why it cannot be heard
    QWidget *controls;
};

/// "0:01 / 0:04", "1:00:00 / 1:02:03"; from milliseconds.
QString playingTimeText(qint64 position, qint64 length);

} // namespace kestor
