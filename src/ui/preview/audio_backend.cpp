#include "ui/preview/audio_backend.h"

#include <QCoreApplication>
#include <QLibrary>

using namespace Qt::StringLiterals;

namespace kestor {

std::unique_ptr<AudioBackend> moduleAudioBackend(const AudioReport &report) {
    using Make = AudioBackend *(*)(const AudioReport &);
    // Beside the program where it was built, else where both are installed.
    for (const QString &folder : {u"."_s, QStringLiteral(KESTOR_AUDIO_FOLDER)}) {
        QLibrary module(QCoreApplication::applicationDirPath() + u'/' + folder + u"/kestor_audio"_s);
        if (const auto make = reinterpret_cast<Make>(module.resolve(audioBackendSymbol)))
            return std::unique_ptr<AudioBackend>(make(report));
    }
    return nullptr;
}

} // namespace kestor
