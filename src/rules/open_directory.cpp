#include "rules/open_directory.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kestor {

Directory openedDirectory(const QByteArray &path) {
    const int descriptor = ::open(path.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (descriptor < 0)
        return nullptr;
    Directory directory(::fdopendir(descriptor));
    if (!directory)
        ::close(descriptor);
    return directory;
}

unsigned char entryKind(DIR *directory, const dirent &entry) {
    struct stat status {};
    if (entry.d_type != DT_UNKNOWN)
        return entry.d_type;
    if (::fstatat(::dirfd(directory), entry.d_name, &status, AT_SYMLINK_NOFOLLOW) != 0)
        return DT_UNKNOWN;
    return IFTODT(status.st_mode);
}

} // namespace kestor
