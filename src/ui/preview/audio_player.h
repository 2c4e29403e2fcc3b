#pragma once

#include "ui/preview/audio_backend.h"

#include <QObject>
#include <QThread>

namespace kestor {

/// The part of a player that lives in its thread.
class AudioWorker final : public QObject {
    Q_OBJECT

public:
    explicit AudioWorker(AudioBackendFactory makeBackend) : make(std::move(makeBackend)) {}

    /// Reports about this sound carry its `number`.
    void open(int number, const QByteArray &data, const QString &name);
    void close() { backend.reset(); }
    /// Null when nothing is open, or there is nothing to play it with.
    AudioBackend *player() { return backend.get(); }

signals:
    void reported(int number, const kestor::AudioStatus &status);

private:
    AudioBackendFactory make;
    std::unique_ptr<AudioBackend> backend;
};

/// A sound that is played in a thread of its own, which begins with the first sound. Main thread only.
class AudioPlayer final : public QObject {
    Q_OBJECT

public:
    explicit AudioPlayer(AudioBackendFactory makeBackend = moduleAudioBackend, QObject *parent = nullptr);
    ~AudioPlayer() override;

    void open(const QByteArray &data, const QString &name);
    void play();
    void pause();
    /// In milliseconds.
    void seek(qint64 position);
    void close();
    const AudioStatus &status() const { return current; }

signals:
    void statusChanged();

private:
    void post(std::function<void(AudioBackend &)> use);

    QThread *thread;
    AudioWorker *worker;
    AudioStatus current{};
    int number = 0; ///< of the latest sound; reports about others are dropped
};

} // namespace kestor
