#pragma once

#include <QByteArray>

#include <dirent.h>
#include <memory>

namespace kestor {

struct DirectoryCloser {
    void operator()(DIR *directory) const { ::closedir(directory); }
};
/// A folder open for reading; null when it could not be opened.
using Directory = std::unique_ptr<DIR, DirectoryCloser>;

/// Opens the folder at the absolute path, encoded as the system has it. Null for links; a link with "/" behind it is
/// followed.
Directory openedDirectory(const QByteArray &path);

/// The kind of an entry as a DT_ constant, links as links, also on file systems that do not tell it with the name.
/// DT_UNKNOWN for what has vanished.
unsigned char entryKind(DIR *directory, const dirent &entry);

} // namespace kestor
