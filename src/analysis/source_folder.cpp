#include "analysis/source_folder.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

namespace kestor {

namespace {

bool isIgnoreFile(std::string_view name) {
    return name == ".gitignore" || name == ".kestorignore";
}

QString decoded(std::string_view name) {
    return QFile::decodeName(QByteArray(name.data(), static_cast<qsizetype>(name.size())));
}

} // namespace

SourceFolder::SourceFolder(const QString &rootPath) : root(QFile::encodeName(rootPath)) {}

void SourceFolder::read(const PendingFolder &folder) {
    path = folder.path;
    rules = folder.rules;
    // Names that are no text in the system's encoding would not survive a way through QString. The root may be a link:
    // the "/" behind it makes the system follow that one.
    directory = openedDirectory(root + '/' + QByteArray::fromStdString(path));
    readNames();
    rulePrefix = path.empty() ? QString() : decoded(path) + u'/';
    if (hasIgnoreFile)
        rules = rules.with(readIgnoreFiles(directory, decoded(path)));
}

void SourceFolder::readNames() {
    names.clear();
    entries.clear();
    hasIgnoreFile = false;
    if (!directory)
        return;
    while (const dirent *entry = ::readdir(directory.get())) {
        const std::string_view name = entry->d_name;
        const unsigned char kind = entryKind(directory.get(), *entry);
        hasIgnoreFile = hasIgnoreFile || isIgnoreFile(name);
        if ((kind != DT_DIR && kind != DT_REG) || name == "." || name == "..")
            continue;
        entries.push_back({names.size(), kind});
        names.append(name).push_back('\0');
    }
}

bool SourceFolder::isIgnored(std::size_t entry) const {
    return !rules.isEmpty() && rules.ignores(rulePrefix + decoded(name(entry)), isDirectory(entry));
}

std::string SourceFolder::pathOf(std::size_t entry) const {
    return path.empty() ? std::string(name(entry)) : path + '/' + name(entry).data();
}

std::optional<qint64> SourceFolder::fileSize(std::size_t entry) const {
    struct stat status {};
    if (::fstatat(::dirfd(directory.get()), name(entry).data(), &status, AT_SYMLINK_NOFOLLOW) != 0)
        return errno == ENOENT ? std::nullopt : std::optional<qint64>(0);
    return S_ISREG(status.st_mode) ? std::optional<qint64>(status.st_size) : std::nullopt;
}

} // namespace kestor
