#include "controller/written_file.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QUuid>

#include <filesystem>
#include <system_error>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

QString cannotWrite(const QString &path, const QString &reason) {
    return u"Could not write %1: %2"_s.arg(path, reason);
}

} // namespace

QString writeFile(const QString &path, const QByteArray &content) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return cannotWrite(path, file.errorString());
    // On a full disk commit() alone would put the part that still had room in the place of the whole.
    const bool whole = file.write(content) == content.size() && file.flush();
    if (!whole && file.error() == QFileDevice::NoError)
        return cannotWrite(path, u"There is no room for all of it."_s);
    return whole && file.commit() ? QString() : cannotWrite(path, file.errorString());
}

FileBeside createFileBeside(const QString &destination) {
    const QFileInfo info(destination);
    if (info.isDir())
        return {QString(), cannotWrite(destination, u"It is a folder."_s)};
    const QString name = u".KestorSVN-%1.%2"_s.arg(QUuid::createUuid().toString(QUuid::WithoutBraces), info.suffix());
    QFile file(info.absolutePath() + u'/' + name);
    if (!file.open(QIODevice::NewOnly))
        return {QString(), cannotWrite(destination, file.errorString())};
    return {file.fileName(), QString()};
}

QString moveIntoPlace(const QString &path, const QString &destination) {
    std::error_code error;
    std::filesystem::rename(QFile::encodeName(path).toStdString(), QFile::encodeName(destination).toStdString(), error);
    if (!error)
        return QString();
    QFile::remove(path);
    return cannotWrite(destination, QString::fromLocal8Bit(error.message()));
}

QString removedFile(const QString &path) {
    QFile::remove(path);
    return QString();
}

} // namespace kestor
