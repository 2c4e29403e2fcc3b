#include "controller/written_file.h"

#include "tools/command_result.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>
#include <filesystem>
#include <system_error>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

QString cannotWrite(const QString &path, const QString &reason) {
    return u"Could not write %1: %2"_s.arg(path, reason);
}

} // namespace

QString writeFile(const QString &path, const QByteArray &content, const QDateTime &modified) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return cannotWrite(path, file.errorString());
    // On a full disk commit() alone would put the part that still had room in the place of the whole.
    const bool whole = file.write(content) == content.size() && file.flush();
    if (!whole && file.error() == QFileDevice::NoError)
        return cannotWrite(path, u"There is no room for all of it."_s);
    if (modified.isValid())
        file.setFileTime(modified, QFileDevice::FileModificationTime);
    return whole && file.commit() ? QString() : cannotWrite(path, file.errorString());
}

FileBeside placeBeside(const QString &destination) {
    const QFileInfo info(destination);
    if (info.isDir())
        return {nullptr, {}, cannotWrite(destination, u"It is a folder."_s)};
    const QString parent = info.absolutePath();
    removeAbandonedHiddenFolders(parent);
    if (::access(QFile::encodeName(parent).constData(), W_OK | X_OK) != 0)
        return {nullptr, {}, cannotWrite(destination, qt_error_string(errno))};
    try {
        const auto folder = std::make_shared<TemporaryFolder>(parent);
        return {folder, folder->path() + u'/' + info.fileName(), {}};
    } catch (const SVNClientError &error) {
        return {nullptr, {}, error.errorDescription()};
    }
}

QString moveIntoPlace(const FileBeside &file, const QString &destination) {
    std::error_code error;
    std::filesystem::rename(QFile::encodeName(file.path).toStdString(), QFile::encodeName(destination).toStdString(),
                            error);
    file.folder->remove();
    return error ? cannotWrite(destination, QString::fromLocal8Bit(error.message())) : QString();
}

} // namespace kestor
