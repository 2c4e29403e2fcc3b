#include "tools/temporary_folder.h"

#include "tools/command_result.h"

#include <QFile>
#include <QUuid>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView namePrefix = u"KestorSVN-";
constexpr mode_t ownerOnly = S_IRWXU;
// Without the bit that a folder inherits from a parent that hands its group on.
constexpr mode_t anyMode = 0777;

enum class LockOutcome : std::uint8_t { locked, heldByAnother, unsupported };

QString newName() {
    return namePrefix.toString() + QUuid::createUuid().toString(QUuid::WithoutBraces);
}

bool isOurName(const QString &name) {
    const QString id = name.sliced(namePrefix.size());
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

/// Whether the open folder belongs to this user alone and still stands at `path`.
bool isOurFolder(int descriptor, const QByteArray &path) {
    struct stat opened {};
    struct stat standing {};
    return ::fstat(descriptor, &opened) == 0 && ::lstat(path.constData(), &standing) == 0 &&
           opened.st_dev == standing.st_dev && opened.st_ino == standing.st_ino && opened.st_uid == ::geteuid() &&
           (opened.st_mode & anyMode) == ownerOnly;
}

/// What a tool of the dead run may still write ends with the name, so that nothing appears behind the removal.
void removeIfAbandoned(const QString &parent, const QString &name) {
    const QByteArray path = QFile::encodeName(parent + u'/' + name);
    const int descriptor = openedFolder(path);
    if (descriptor < 0)
        return;
    const QString removed = parent + u'/' + newName();
    if (lockFolder(descriptor) == LockOutcome::locked && isOurFolder(descriptor, path) &&
        std::rename(path.constData(), QFile::encodeName(removed).constData()) == 0)
        QDir(removed).removeRecursively();
    ::close(descriptor);
}

} // namespace

TemporaryFolder::TemporaryFolder() {
    // Another start of the program may take a folder for abandoned in the moment before it is locked.
    constexpr int attempts = 3;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        folder = QDir::tempPath() + u'/' + newName();
        const QByteArray path = QFile::encodeName(folder);
        if (::mkdir(path.constData(), ownerOnly) != 0)
            break;
        lock = openedFolder(path);
        if (lock >= 0 && lockFolder(lock) != LockOutcome::heldByAnother && isOurFolder(lock, path))
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

void removeAbandonedFolders(const QString &parent) {
    const QDir::Filters folders = QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks;
    for (const QString &name : QDir(parent).entryList({namePrefix.toString() + u'*'}, folders)) {
        if (isOurName(name))
            removeIfAbandoned(parent, name);
    }
}

} // namespace kestor
