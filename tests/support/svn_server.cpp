#include "support/svn_server.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <QThread>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace kestor::testing {

namespace {

quint16 freePort() {
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    return server.serverPort();
}

bool answers(quint16 port) {
    QTcpSocket socket;
    socket.connectToHost(QHostAddress::LocalHost, port);
    return socket.waitForConnected(1000);
}

} // namespace

SvnServer::SvnServer(const QString &root) : servedPort(freePort()) {
    process.start(u"svnserve"_s, {u"--daemon"_s, u"--foreground"_s, u"--listen-host"_s, u"127.0.0.1"_s,
                                  u"--listen-port"_s, QString::number(servedPort), u"--root"_s, root});
    for (int attempt = 0; attempt < 500; ++attempt) {
        if (answers(servedPort))
            return;
        QThread::msleep(10);
    }
    throw std::runtime_error("svnserve does not answer");
}

QString SvnServer::url(const QString &path) const {
    return u"svn://127.0.0.1:"_s + QString::number(servedPort) + u'/' + path;
}

void SvnServer::stop() {
    process.kill();
    process.waitForFinished();
}

} // namespace kestor::testing
