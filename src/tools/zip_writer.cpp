#include "tools/zip_writer.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>
#include <archive.h>
#include <archive_entry.h>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <locale.h>
#include <memory>
#include <string>
#include <sys/stat.h>
#include <system_error>
#include <utility>
#include <vector>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

constexpr std::size_t blockSize = std::size_t{256} * 1024;

/// Ends the writing; the text is for the user.
struct ZipFailure {
    QString text;
};

QString shown(const fs::path &path) {
    return QFile::decodeName(path.c_str());
}

ZipFailure cannotRead(const fs::path &path, const std::error_code &reason) {
    return {u"Could not read %1: %2"_s.arg(shown(path), QString::fromLocal8Bit(reason.message()))};
}

std::error_code lastError() {
    return {errno, std::generic_category()};
}

struct stat statusOf(const fs::path &path) {
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0)
        throw cannotRead(path, lastError());
    return status;
}

/// An open zip. Everything throws ZipFailure.
class ZipWriter {
public:
    /// `file` is open for writing and outlives the writer.
    ZipWriter(const QSaveFile &file, std::stop_token stopToken);

    /// Adds one folder without its content, one file or one link under `name`.
    void add(const fs::path &path, const std::string &name);
    void close() { check(archive_write_close(archive.get())); }

private:
    void check(la_ssize_t status) const;
    void addContent(const fs::path &path);
    void stopIfAsked() const;
    bool isDestination(const struct stat &status) const;

    QString destination;
    std::stop_token stop;
    struct stat newFile {};
    struct stat olderFile {};
    std::unique_ptr<struct archive, decltype(&archive_write_free)> archive{archive_write_new(), &archive_write_free};
    std::unique_ptr<archive_entry, decltype(&archive_entry_free)> entry{archive_entry_new(), &archive_entry_free};
    std::vector<char> block = std::vector<char>(blockSize);
};

/// libarchive takes names as the thread's locale has them; they are UTF-8, whatever that of the program is.
class Utf8Locale {
public:
    Utf8Locale() : utf8(::newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr)) {
        if (utf8 != nullptr)
            before = ::uselocale(utf8);
    }
    ~Utf8Locale() {
        if (utf8 == nullptr)
            return;
        ::uselocale(before);
        ::freelocale(utf8);
    }
    Q_DISABLE_COPY_MOVE(Utf8Locale)

private:
    locale_t utf8;
    locale_t before = nullptr;
};

ZipWriter::ZipWriter(const QSaveFile &file, std::stop_token stopToken)
    : destination(file.fileName()), stop(std::move(stopToken)) {
    ::fstat(file.handle(), &newFile);
    ::stat(QFile::encodeName(destination).constData(), &olderFile);
    check(archive_write_set_format_zip(archive.get()));
    check(archive_write_set_format_option(archive.get(), "zip", "hdrcharset", "UTF-8"));
    check(archive_write_open_fd(archive.get(), file.handle()));
}

// A warning still writes the entry, for example under a name that is not UTF-8.
void ZipWriter::check(la_ssize_t status) const {
    if (status >= ARCHIVE_WARN)
        return;
    const QString reason = QString::fromLocal8Bit(archive_error_string(archive.get()));
    throw ZipFailure{u"Could not write %1: %2"_s.arg(destination, reason)};
}

void ZipWriter::stopIfAsked() const {
    if (stop.stop_requested())
        throw ZipFailure{u"The zip was stopped."_s};
}

bool ZipWriter::isDestination(const struct stat &status) const {
    const auto isSame = [&](const struct stat &file) {
        return status.st_dev == file.st_dev && status.st_ino == file.st_ino;
    };
    return isSame(newFile) || isSame(olderFile);
}

void ZipWriter::add(const fs::path &path, const std::string &name) {
    stopIfAsked();
    const struct stat status = statusOf(path);
    const bool storable = S_ISREG(status.st_mode) || S_ISDIR(status.st_mode) || S_ISLNK(status.st_mode);
    if (!storable || isDestination(status))
        return;
    archive_entry_clear(entry.get());
    archive_entry_set_pathname(entry.get(), name.c_str());
    archive_entry_set_mode(entry.get(), status.st_mode);
    archive_entry_set_mtime(entry.get(), status.st_mtime, 0);
    if (S_ISREG(status.st_mode))
        archive_entry_set_size(entry.get(), status.st_size);
    if (S_ISLNK(status.st_mode))
        archive_entry_set_symlink(entry.get(), fs::read_symlink(path).c_str());
    check(archive_write_header(archive.get(), entry.get()));
    if (S_ISREG(status.st_mode))
        addContent(path);
}

void ZipWriter::addContent(const fs::path &path) {
    const std::unique_ptr<std::FILE, decltype(&std::fclose)> file(std::fopen(path.c_str(), "rbe"), &std::fclose);
    if (!file)
        throw cannotRead(path, lastError());
    while (const std::size_t count = std::fread(block.data(), 1, block.size(), file.get())) {
        stopIfAsked();
        const la_ssize_t written = archive_write_data(archive.get(), block.data(), count);
        check(written);
        if (static_cast<std::size_t>(written) < count)
            break; // the file has grown beyond the size in its entry
    }
    if (std::ferror(file.get()) != 0)
        throw cannotRead(path, lastError());
}

/// What is in a folder, by the bytes of the names, so that the same tree always gives the same zip.
std::vector<fs::directory_entry> sortedEntries(const fs::path &folder) {
    std::error_code error;
    std::vector<fs::directory_entry> entries;
    for (fs::directory_iterator walk(folder, error), end; !error && walk != end; walk.increment(error))
        entries.push_back(*walk);
    if (error)
        throw cannotRead(folder, error);
    const auto path = [](const fs::directory_entry &entry) -> const std::string & {
        return entry.path().native();
    };
    std::ranges::sort(entries, {}, path);
    return entries;
}

void addContents(ZipWriter &zip, const fs::path &folder, std::size_t nameStart) {
    for (const fs::directory_entry &entry : sortedEntries(folder)) {
        zip.add(entry.path(), entry.path().native().substr(nameStart));
        if (entry.symlink_status().type() == fs::file_type::directory)
            addContents(zip, entry.path(), nameStart);
    }
}

void addTree(ZipWriter &zip, const fs::path &root) {
    const std::size_t nameStart = root.native().rfind('/') + 1;
    zip.add(root / "", root.native().substr(nameStart)); // with "/" at the end: the folder even if the path is a link
    addContents(zip, root, nameStart);
}

fs::path nativePath(const QString &path) {
    return QFile::encodeName(QDir::cleanPath(QDir().absoluteFilePath(path))).toStdString();
}

} // namespace

QString writeZip(const QString &source, const QString &destination, const std::stop_token &stop) {
    if (!QFileInfo(source).isDir())
        return u"Could not read %1: It is not a folder."_s.arg(source);
    QSaveFile file(destination);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return u"Could not write %1: %2"_s.arg(destination, file.errorString());
    const Utf8Locale locale;
    try {
        ZipWriter zip(file, stop);
        addTree(zip, nativePath(source));
        zip.close();
    } catch (const ZipFailure &failure) {
        return failure.text;
    } catch (const fs::filesystem_error &error) {
        return cannotRead(error.path1(), error.code()).text;
    }
    if (!file.commit())
        return u"Could not write %1: %2"_s.arg(destination, file.errorString());
    return {};
}

} // namespace kestor
