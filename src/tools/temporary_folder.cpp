#include "tools/temporary_folder.h"

#include "tools/command_result.h"

#include <QFile>
#include <QUuid>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace kestor {

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace {

constexpr QStringView namePrefix = u"KestorSVN-";
constexpr QStringView hiddenPrefix = u".KestorSVN-";
constexpr mode_t ownerOnly = S_IRWXU;
// Without the bit that a folder inherits from a parent that hands its group on.
constexpr mode_t anyMode = 0777;

enum class LockOutcome : std::uint8_t { locked, heldByAnother, unsupported };

QString newId() {
    return QUuid::createUuid().toString(QUuid::WithoutBraces);
}

bool isOurId(const QString &id) {
    const QUuid uuid = QUuid::fromString(id);
    return !uuid.isNull() && uuid.toString(QUuid::WithoutBraces) == id;
}

/// Opens the folder itself, no link to one. Children do not keep it open.
int openedFolder(const QByteArray &path) {
    return ::open(path.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
}

LockOutcome lockFolder(int descriptor) {
    if (::flock(descriptor, LOCK_EX | LOCK_NB) == 0)
        return LockOutcome::locked;
    return errno == EWOULDBLOCK ? LockOutcome::heldByAnother : LockOutcome::unsupported;
}

/// Whether the open folder still stands at `path`.
bool isStanding(int descriptor, const QByteArray &path) {
    struct stat opened {};
    struct stat standing {};
    return ::fstat(descriptor, &opened) == 0 && ::lstat(path.constData(), &standing) == 0 &&
           opened.st_dev == standing.st_dev && opened.st_ino == standing.st_ino;
}

/// Whether the open folder belongs to this user alone.
bool isPrivate(int descriptor) {
    struct stat opened {};
    return ::fstat(descriptor, &opened) == 0 && opened.st_uid == ::geteuid() && (opened.st_mode & anyMode) == ownerOnly;
}

/// Links as links. What cannot be removed stays, and so does what is left when it is stopped.
void removeTree(const fs::path &folder, const std::stop_token &stop) {
    std::error_code error;
    for (fs::directory_iterator walk(folder, error), end; !error && walk != end; walk.increment(error)) {
        if (stop.stop_requested())
            return;
        std::error_code refusal;
        if (walk->symlink_status(refusal).type() == fs::file_type::directory)
            removeTree(walk->path(), stop);
        else
            fs::remove(walk->path(), refusal);
    }
    fs::remove(folder, error);
}

/// What a tool of the dead run may still write ends with the name, so that nothing appears behind the removal.
void removeIfAbandoned(const QByteArray &path, const QByteArray &newPath, const std::stop_token &stop) {
    const int descriptor = openedFolder(path);
    if (descriptor < 0)
        return;
    if (lockFolder(descriptor) == LockOutcome::locked && isPrivate(descriptor) && isStanding(descriptor, path) &&
        std::rename(path.constData(), newPath.constData()) == 0)
        removeTree(newPath.toStdString(), stop);
    ::close(descriptor);
}

void removeAbandoned(const QString &parent, QStringView prefix, const std::stop_token &stop) {
    const QDir::Filters folders = QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot | QDir::NoSymLinks;
    const QString start = parent + u'/' + prefix.toString();
    for (const QString &name : QDir(parent).entryList({prefix.toString() + u'*'}, folders)) {
        const QString id = name.sliced(prefix.size());
        if (isOurId(id) && !stop.stop_requested())
            removeIfAbandoned(QFile::encodeName(start + id), QFile::encodeName(start + newId()), stop);
    }
}

} // namespace

TemporaryFolder::TemporaryFolder()
    : TemporaryFolder(QDir::tempPath() + u'/' + namePrefix.toString(), Privacy::required) {}

TemporaryFolder::TemporaryFolder(const QString &parent)
    : TemporaryFolder(parent + u'/' + hiddenPrefix.toString(), Privacy::wherePossible) {}

TemporaryFolder::TemporaryFolder(const QString &start, Privacy privacy) {
    // Another start of the program may take a folder for abandoned in the moment before it is locked.
    constexpr int attempts = 3;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        folder = start + newId();
        const QByteArray path = QFile::encodeName(folder);
        if (::mkdir(path.constData(), ownerOnly) != 0)
            break;
        lock = openedFolder(path);
        if (lock >= 0 && lockFolder(lock) != LockOutcome::heldByAnother && isStanding(lock, path) &&
            (privacy == Privacy::wherePossible || isPrivate(lock)))
            return;
        remove();
    }
    throw SVNClientError::launchFailed(u"Could not create the folder "_s + folder + u'.');
}

TemporaryFolder::~TemporaryFolder() {
    remove();
}

void TemporaryFolder::remove() {
    if (lock < 0)
        return;
    QDir(folder).removeRecursively();
    ::close(std::exchange(lock, -1));
}

void removeAbandonedFolders(const QString &parent, const std::stop_token &stop) {
    removeAbandoned(parent, namePrefix, stop);
}

void removeAbandonedHiddenFolders(const QString &parent) {
    removeAbandoned(parent, hiddenPrefix, {});
}

} // namespace kestor
