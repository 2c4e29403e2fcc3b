#pragma once

#include <QProcess>
#include <QString>

namespace kestor::testing {

/// `svnserve` for the repositories below a folder, at a free port, for this machine alone. Ends with the object.
class SvnServer {
public:
    explicit SvnServer(const QString &root);
    ~SvnServer() { stop(); }
    Q_DISABLE_COPY_MOVE(SvnServer)

    /// The URL of `path` below the folder.
    QString url(const QString &path) const;
    quint16 port() const { return servedPort; }
    /// Something else may listen at the port then.
    void stop();

private:
    quint16 servedPort;
    QProcess process{};
};

} // namespace kestor::testing
