#pragma once

#include <QByteArray>
#include <QString>
#include <QtGlobal>

#include <cstdint>
#include <functional>
#include <memory>

namespace kestor {

enum class AudioState : std::uint8_t {
    loading,
    ready, ///< can be played from `position` on
    playing,
    noDevice, ///< could be played if there were something to hear it with
    failed,   ///< not a sound that can be decoded here
};

struct AudioStatus {
    AudioState state = AudioState::loading;
    qint64 length = 0;   ///< in milliseconds; 0 while it is not known
    qint64 position = 0; ///< in milliseconds

    friend bool operator==(const AudioStatus &, const AudioStatus &) = default;
};

/// Called in the thread of the backend.
using AudioReport = std::function<void(const AudioStatus &)>;

/// Plays one sound at a time. Made and used in one thread, which has an event loop and must be none that may not wait:
/// starting the system's media library takes hundreds of milliseconds.
class AudioBackend {
public:
    AudioBackend() = default;
    virtual ~AudioBackend() = default;
    Q_DISABLE_COPY_MOVE(AudioBackend)

    /// Takes the bytes of a file; `name` helps to recognise its format. It does not play yet.
    virtual void open(const QByteArray &data, const QString &name) = 0;
    virtual void play() = 0;
    virtual void pause() = 0;
    virtual void seek(qint64 position) = 0;
};

using AudioBackendFactory = std::function<std::unique_ptr<AudioBackend>(AudioReport)>;

/// The name of the function that a module exports to make its backend: `extern "C" AudioBackend *(const AudioReport
/// &)`.
inline constexpr const char *audioBackendSymbol = "kestorAudioBackend";

/// The backend of the module beside the program or installed with it, which is loaded for that, since what it needs
/// would slow down every start. Null when there is none.
std::unique_ptr<AudioBackend> moduleAudioBackend(const AudioReport &report);

} // namespace kestor
