#pragma once

#include <QDir>
#include <QString>
#include <QtGlobal>

namespace kestor {

/// A folder for temporary files that nobody else may look into: "KestorSVN-UUID" in the system's temporary folder. It
/// is locked as long as the object lives and the system gives the lock back when the program dies, however it dies.
class TemporaryFolder {
public:
    /// Creates it. Throws SVNClientError.
    TemporaryFolder();
    ~TemporaryFolder();
    Q_DISABLE_COPY_MOVE(TemporaryFolder)

    const QString &path() const { return folder; }
    /// Removes it with all that is in it, links as links. The destructor does what was not done before: much content
    /// is for a worker thread.
    void remove();

private:
    QString folder{};
    int lock = -1;
};

/// Removes from `parent` the temporary folders of runs that died: those that have the name, belong to this user alone
/// and are locked by nobody. Reads and writes the disk; workers.
void removeAbandonedFolders(const QString &parent = QDir::tempPath());

} // namespace kestor
