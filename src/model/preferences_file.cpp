#include "model/preferences_file.h"

#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <string>
#include <system_error>

namespace kestor {

namespace {

namespace fs = std::filesystem;

/// The file that the preferences are in, wherever a link leads.
QString fileOf(const QSettings &settings) {
    const QString file = QFileInfo(settings.fileName()).canonicalFilePath();
    return file.isEmpty() ? settings.fileName() : file;
}

/// Whether the file holds all of the settings, each key in one line: on a full disk Qt calls the part success that
/// still had room. macOS writes property lists itself.
bool isWhole(const QString &path, const QSettings &settings) {
    if (path.endsWith(u".plist"))
        return true;
    QFile file(path);
    qsizetype missing = settings.allKeys().size();
    if (missing > 0 && !file.open(QIODevice::ReadOnly))
        return false;
    while (missing > 0 && !file.atEnd()) {
        const QByteArray line = file.readLine();
        missing -= line.contains('=') && line.endsWith('\n') ? 1 : 0;
    }
    return missing == 0;
}

} // namespace

bool writeToDisk(const QSettings &settings) {
    const fs::path file = QFile::encodeName(fileOf(settings)).toStdString();
    const fs::path kept = file.native() + ".before";
    std::error_code none;
    fs::remove(kept, none);
    fs::create_hard_link(file, kept, none);
    // An error stays with its object for ever: a new one, for the same file, tells of this write alone, which it begins
    // when it is made.
    QSettings writing(settings.fileName(), settings.format());
    writing.sync();
    const bool isWritten = writing.status() != QSettings::AccessError && isWhole(settings.fileName(), writing);
    if (!isWritten)
        fs::rename(kept, file, none); // nothing happens where the file was left alone
    fs::remove(kept, none);
    return isWritten;
}

} // namespace kestor
