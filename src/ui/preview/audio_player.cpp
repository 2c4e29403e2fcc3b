#include "ui/preview/audio_player.h"

#include <QMetaObject>

namespace kestor {

namespace {

constexpr unsigned long longestFarewell = 2000; // milliseconds

}

void AudioWorker::open(int number, const QByteArray &data, const QString &name) {
    backend = make([this, number](const AudioStatus &status) { emit reported(number, status); });
    if (backend)
        backend->open(data, name);
    else
        emit reported(number, {.state = AudioState::failed});
}

AudioPlayer::AudioPlayer(AudioBackendFactory makeBackend, QObject *parent)
    : QObject(parent), thread(new QThread), worker(new AudioWorker(std::move(makeBackend))) {
    worker->moveToThread(thread);
    connect(thread, &QThread::finished, worker, &QObject::deleteLater);
    connect(
        worker, &AudioWorker::reported, this,
        [this](int sound, const AudioStatus &status) {
            if (sound != number || status == current)
                return;
            current = status;
            emit statusChanged();
        },
        Qt::QueuedConnection);
    thread->start();
}

/// A media library that hangs must not keep the window open: its thread is then left behind.
AudioPlayer::~AudioPlayer() {
    thread->quit();
    if (thread->wait(longestFarewell))
        delete thread;
}

void AudioPlayer::post(std::function<void(AudioBackend &)> use) {
    QMetaObject::invokeMethod(worker, [worker = worker, use = std::move(use)] {
        if (AudioBackend *const backend = worker->player())
            use(*backend);
    });
}

void AudioPlayer::open(const QByteArray &data, const QString &name) {
    ++number;
    current = {};
    emit statusChanged();
    QMetaObject::invokeMethod(worker,
                              [worker = worker, sound = number, data, name] { worker->open(sound, data, name); });
}

void AudioPlayer::play() {
    post([](AudioBackend &backend) { backend.play(); });
}

void AudioPlayer::pause() {
    post([](AudioBackend &backend) { backend.pause(); });
}

void AudioPlayer::seek(qint64 position) {
    post([position](AudioBackend &backend) { backend.seek(position); });
}

void AudioPlayer::close() {
    ++number;
    QMetaObject::invokeMethod(worker, [worker = worker] { worker->close(); });
}

} // namespace kestor
