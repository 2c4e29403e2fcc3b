#include "rules/folder_reader.h"

#include "rules/working_copy_paths.h"

#include <QFile>
#include <QStringDecoder>

#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace kestor {

namespace {

struct DirectoryCloser {
    void operator()(DIR *directory) const { ::closedir(directory); }
};
using Directory = std::unique_ptr<DIR, DirectoryCloser>;

Directory openedDirectory(const QByteArray &path) {
    const int descriptor = ::open(path.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (descriptor < 0)
        return nullptr;
    Directory directory(::fdopendir(descriptor));
    if (!directory)
        ::close(descriptor);
    return directory;
}

/// Some file systems do not tell the kind of an entry with its name.
bool entryIsDirectory(DIR *directory, const dirent &entry) {
    if (entry.d_type != DT_UNKNOWN)
        return entry.d_type == DT_DIR;
    struct stat status {};
    return ::fstatat(::dirfd(directory), entry.d_name, &status, AT_SYMLINK_NOFOLLOW) == 0 && S_ISDIR(status.st_mode);
}

bool isRegularFile(const QString &path) {
    struct stat status {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 && S_ISREG(status.st_mode);
}

/// Only regular files: opening a pipe of that name would wait for its other end. Stateless: a file that ends within a
/// character is no UTF-8 either.
QString utf8Text(const QString &path) {
    QFile file(path);
    if (!isRegularFile(path) || !file.open(QIODevice::ReadOnly))
        return {};
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder(file.readAll());
    return decoder.hasError() ? QString() : text;
}

QString pathPrefix(const QString &folder) {
    return folder.isEmpty() ? QString() : folder + u'/';
}

std::vector<FolderEntry> readEntries(const QString &absoluteFolder, const QString &folder) {
    std::vector<FolderEntry> entries;
    const Directory directory = openedDirectory(QFile::encodeName(absoluteFolder));
    if (!directory)
        return entries;
    const QString prefix = pathPrefix(folder);
    while (const dirent *entry = ::readdir(directory.get())) {
        const QString name = QFile::decodeName(entry->d_name);
        if (name != u"." && name != u".." && !isRepositoryMetadataName(name))
            entries.push_back({prefix + name, entryIsDirectory(directory.get(), *entry)});
    }
    return entries;
}

} // namespace

FolderReader::FolderReader(const QString &rootPath) : root(rootPath) {}

const std::vector<FolderEntry> &FolderReader::entries(const QString &folder) {
    const auto [listing, isNew] = listings.try_emplace(folder);
    // The root may be given through a link; the "/" behind it makes the system follow that one.
    if (isNew)
        listing->second = readEntries(absolutePath(folder, root), folder);
    return listing->second;
}

const QList<IgnoreRule> &FolderReader::ignoreFileRules(const QString &folder) {
    const auto [list, isNew] = ruleLists.try_emplace(folder);
    if (!isNew)
        return list->second;
    for (const QStringView name : {gitIgnoreName, kestorIgnoreName}) {
        const QString text = utf8Text(absolutePath(pathPrefix(folder) + name.toString(), root));
        for (const QStringView line : QStringView(text).tokenize(u'\n')) {
            if (std::optional<IgnoreRule> rule = IgnoreRule::fromLine(line, folder))
                list->second.append(*std::move(rule));
        }
    }
    return list->second;
}

} // namespace kestor
