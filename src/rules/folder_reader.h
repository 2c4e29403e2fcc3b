#pragma once

#include "rules/ignore_rule.h"

#include <QList>
#include <QString>

#include <unordered_map>
#include <vector>

namespace kestor {

/// One entry of a folder, with its path below the root.
struct FolderEntry {
    QString path{};
    bool isDirectory = false; ///< links to folders are no folders
};

/// What the folders below a root hold. Each is read once and remembered, so several passes over a working copy cost one
/// and see the same state. Paths are normalised; one thread.
class FolderReader {
public:
    /// Folders below the root that hold an entry of the name `closingName` count as empty; "" closes none.
    explicit FolderReader(const QString &rootPath, const QString &closingName = {});

    QString rootPath() const { return root; }
    /// What the folder holds, in the order of the disk, without ".svn" and ".git". Nothing for folders that cannot be
    /// read, for closed ones and for links.
    const std::vector<FolderEntry> &entries(const QString &folder);
    /// The rules of the folder's ignore files in the order in which they decide. Files that cannot be read or are not
    /// UTF-8 give none.
    const QList<IgnoreRule> &ignoreFileRules(const QString &folder);

private:
    const QString root;
    const QString closing;
    std::unordered_map<QString, std::vector<FolderEntry>> listings;
    std::unordered_map<QString, QList<IgnoreRule>> ruleLists;
};

} // namespace kestor
