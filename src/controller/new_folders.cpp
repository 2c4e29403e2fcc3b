#include "controller/new_folders.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

/// Also a link that leads nowhere.
bool exists(const QString &path) {
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

bool holdsNothing(const QString &path) {
    return !exists(path) || (QFileInfo(path).isDir() &&
                             QDir(path).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot));
}

QString existsText(const QString &path) {
    return path + u" already exists."_s;
}

Refusal destinationRefusal(const QString &path) {
    return {u"Destination Already Exists"_s, existsText(path)};
}

} // namespace

QString offeredFolderName(const QString &url) {
    const QStringList parts = url.split(u'/', Qt::SkipEmptyParts);
    QString name = parts.isEmpty() ? u"Working Copy"_s : parts.last();
    // Wherever they stand, not only at the end.
    return name.remove(u".svn"_s).remove(u".git"_s);
}

std::optional<Refusal> folderNameRefusal(const QString &name) {
    if (name.isEmpty())
        return Refusal{u"Folder Name Required"_s, u"Choose a name for the new folder."_s};
    if (name == u"." || name == u".." || name.contains(u'/')) {
        return Refusal{u"Invalid Folder Name"_s,
                       name + u" is not the name of a folder. Type a name without \"/\"; the folder around it is "
                              "chosen before."_s};
    }
    return std::nullopt;
}

QString folderIn(const QString &parent, const QString &name) {
    return QDir::cleanPath(parent + u'/' + name);
}

std::optional<Refusal> standingDestinationRefusal(const QString &path) {
    return holdsNothing(path) ? std::nullopt : std::optional(destinationRefusal(path));
}

std::optional<Refusal> standingExportRefusal(const QString &path) {
    return exists(path) ? std::optional(destinationRefusal(path)) : std::nullopt;
}

std::optional<NewRepository> newRepositoryAt(const QString &chosenPath) {
    const QString name = chosenPath.section(u'/', -1);
    if (name.isEmpty() || name == u"." || name == u"..")
        return std::nullopt;
    const QString path = QDir::cleanPath(chosenPath);
    return NewRepository{path, path + u".repo"_s};
}

std::optional<Refusal> standingRepositoryRefusal(const NewRepository &folders) {
    if (exists(folders.repository))
        return Refusal{u"Repository Already Exists"_s, existsText(folders.repository)};
    if (exists(folders.workingCopy))
        return Refusal{u"Working Directory Already Exists"_s, existsText(folders.workingCopy)};
    return std::nullopt;
}

QString remainsText(const QString &path) {
    return holdsNothing(path) ? QString() : u"What was done until then is in "_s + path + u'.';
}

} // namespace kestor
