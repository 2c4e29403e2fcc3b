#include "ui/preview/audio_backend.h"

#include <QCoreApplication>
#include <QLibrary>

using namespace Qt::StringLiterals;

namespace kestor {

std::unique_ptr<AudioBackend> moduleAudioBackend(const AudioReport &report) {
    QLibrary module(QCoreApplication::applicationDirPath() + u"/kestor_audio"_s);
    using Make = AudioBackend *(*)(const AudioReport &);
    const auto make = reinterpret_cast<Make>(module.resolve(audioBackendSymbol));
    return std::unique_ptr<AudioBackend>(make == nullptr ? nullptr : make(report));
}

} // namespace kestor
