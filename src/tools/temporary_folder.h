#pragma once

#include <QDir>
#include <QString>
#include <QtGlobal>

#include <cstdint>
#include <stop_token>

namespace kestor {

/// A folder for temporary files that nobody else may look into. It is locked as long as the object lives and the system
/// gives the lock back when the program dies, however it dies.
class TemporaryFolder {
public:
    /// Creates "KestorSVN-UUID" in the system's temporary folder. Throws SVNClientError.
    TemporaryFolder();
    /// Creates the hidden ".KestorSVN-UUID" in `parent`, for a file that shall be moved to its place there when it is
    /// whole. A disk without permissions lets others look into it. Throws SVNClientError.
    explicit TemporaryFolder(const QString &parent);
    ~TemporaryFolder();
    Q_DISABLE_COPY_MOVE(TemporaryFolder)

    const QString &path() const { return folder; }
    /// Removes it with all that is in it, links as links. The destructor does what was not done before: much content
    /// is for a worker thread.
    void remove();

private:
    enum class Privacy : std::uint8_t { required, wherePossible };
    TemporaryFolder(const QString &start, Privacy privacy);

    QString folder{};
    int lock = -1;
};

/// Removes from `parent` the temporary folders of runs that died: those that have the name, belong to this user alone
/// and are locked by nobody. Once asked to stop it leaves the rest to another time. Reads and writes the disk; workers.
void removeAbandonedFolders(const QString &parent = QDir::tempPath(), const std::stop_token &stop = {});
/// The same with the hidden ones.
void removeAbandonedHiddenFolders(const QString &parent);

} // namespace kestor
