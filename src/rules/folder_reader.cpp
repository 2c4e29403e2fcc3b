#include "rules/folder_reader.h"

#include "rules/folder_rules.h"
#include "rules/open_directory.h"
#include "rules/working_copy_paths.h"

#include <QFile>

namespace kestor {

namespace {

QString pathPrefix(const QString &folder) {
    return folder.isEmpty() ? QString() : folder + u'/';
}

std::vector<FolderEntry> readEntries(const QString &absoluteFolder, const QString &folder, const QString &closing) {
    std::vector<FolderEntry> entries;
    const Directory directory = openedDirectory(QFile::encodeName(absoluteFolder));
    if (!directory)
        return entries;
    const QString prefix = pathPrefix(folder);
    while (const dirent *entry = ::readdir(directory.get())) {
        const QString name = QFile::decodeName(entry->d_name);
        if (!folder.isEmpty() && name == closing)
            return {};
        if (name != u"." && name != u".." && !isRepositoryMetadataName(name))
            entries.push_back({prefix + name, entryKind(directory.get(), *entry) == DT_DIR});
    }
    return entries;
}

} // namespace

FolderReader::FolderReader(const QString &rootPath, const QString &closingName)
    : root(rootPath), closing(closingName) {}

const std::vector<FolderEntry> &FolderReader::entries(const QString &folder) {
    const auto [listing, isNew] = listings.try_emplace(folder);
    // The root may be given through a link; the "/" behind it makes the system follow that one.
    if (isNew)
        listing->second = readEntries(absolutePath(folder, root), folder, closing);
    return listing->second;
}

const QList<IgnoreRule> &FolderReader::ignoreFileRules(const QString &folder) {
    const auto [list, isNew] = ruleLists.try_emplace(folder);
    if (isNew)
        list->second = readIgnoreFiles(openedDirectory(QFile::encodeName(absolutePath(folder, root))), folder);
    return list->second;
}

} // namespace kestor
