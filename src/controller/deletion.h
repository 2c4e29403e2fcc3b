#pragma once

#include <QByteArray>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

#include <optional>

namespace kestor {

/// An unversioned path and the unversioned folder in which it was found, "" when it lies in a versioned one.
struct UnversionedPath {
    QString path{};
    QString root{};

    friend bool operator==(const UnversionedPath &, const UnversionedPath &) = default;
};

/// What went to the trash; both paths are absolute. A link without target, which no trash takes, is only remembered.
struct TrashedPath {
    QString original{};
    QString inTrash{};       ///< "" for such a link
    QByteArray linkTarget{}; ///< of such a link, as it was written

    friend bool operator==(const TrashedPath &, const TrashedPath &) = default;
};

/// What a deletion came to.
struct DeletionResult {
    qsizetype deleted = 0;          ///< paths taken from the disk
    QList<TrashedPath> moved{};     ///< those of them that are in the trash
    std::optional<QString> error{}; ///< why it stopped, in words for the user
    bool foundNone = false;         ///< the error is that none of the paths was on disk

    friend bool operator==(const DeletionResult &, const DeletionResult &) = default;
};

struct TrashResult {
    QList<TrashedPath> moved{};
    std::optional<QString> error{}; ///< in words for the user; nothing was moved then
};

/// The normalised working-copy path of `path` when it may be deleted below `root` (absolute). Throws SVNClientError for
/// the root itself, a path that leaves the root by ".." or through a link, what is or holds repository metadata, and
/// what lies in a repository of its own.
QString deletablePath(const QString &path, const QString &root);
/// The same, looking at each folder on the way once: those in `checkedFolders` are known to be good.
QString deletablePath(const QString &path, const QString &root, QSet<QString> &checkedFolders);

/// `paths` (normalised) without those below another one of them, sorted.
QList<UnversionedPath> topLevelWorkingCopyPaths(QList<UnversionedPath> paths);

/// Takes unversioned paths from the disk: into the system's trash, where that fails for good. Links are removed as
/// links. Unversioned folders above that became empty go too, versioned ones stay. Nothing is touched when any path is
/// refused. Reads and writes the disk; workers.
DeletionResult deleteUnversionedItems(const QList<UnversionedPath> &paths, const QString &root);

/// Moves files and whole folders to the trash, none for good but links without target: all of them or none. Workers.
TrashResult moveToTrash(const QStringList &paths, const QString &root);

/// Moves back from the trash, or links again, what nothing else stands for now; the rest stays there. Workers.
void takeBack(const QList<TrashedPath> &paths);

} // namespace kestor
