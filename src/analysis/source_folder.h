#pragma once

#include "rules/folder_rules.h"
#include "rules/open_directory.h"

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestor {

/// A folder that a walk over sources still has to read.
struct PendingFolder {
    std::string path{};  ///< below the root, as the system encodes it
    FolderRules rules{}; ///< those of the folders above
};

/// The files and folders in one folder: links and all else are left out. Reading it takes the names alone; what else is
/// asked of an entry is computed or looked up then. One thread.
class SourceFolder {
public:
    explicit SourceFolder(const QString &rootPath);

    /// Reads another folder; one that cannot be read counts as empty.
    void read(const PendingFolder &folder);

    std::size_t size() const { return entries.size(); }
    /// Ends with a null character.
    std::string_view name(std::size_t entry) const { return names.data() + entries[entry].nameBegin; }
    bool isDirectory(std::size_t entry) const { return entries[entry].kind == DT_DIR; }
    /// Whether the rules ignore the entry.
    bool isIgnored(std::size_t entry) const;
    /// The bytes of a file, 0 when the system does not tell; nothing for what has vanished or is no file any more.
    std::optional<qint64> fileSize(std::size_t entry) const;
    /// Its path below the root, as the system encodes it.
    std::string pathOf(std::size_t entry) const;
    /// What reading the folder at the entry takes.
    PendingFolder folderAt(std::size_t entry) const { return {pathOf(entry), rules}; }

private:
    struct Entry {
        std::size_t nameBegin = 0;
        unsigned char kind = DT_UNKNOWN;
    };

    void readNames();

    const QByteArray root; ///< as the system encodes it
    Directory directory{};
    std::string names{};
    std::vector<Entry> entries{};
    bool hasIgnoreFile = false;
    std::string path{};
    QString rulePrefix{}; ///< what the rules have before the names
    FolderRules rules{};
};

} // namespace kestor
