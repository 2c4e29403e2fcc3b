#include "ui/start/open_request.h"

#include <QByteArrayList>
#include <QDir>
#include <QFile>

namespace kestor {

namespace {

// A message is the head, the token and the paths, each ended by a zero byte, and one more: no path is empty or holds
// one.
constexpr QByteArrayView head = "KestorSVN open 1";

} // namespace

OpenRequest openRequest(const QList<QByteArray> &words, const QString &directory, const QByteArray &activationToken) {
    OpenRequest request{{}, activationToken};
    for (const QByteArray &word : words) {
        if (!word.isEmpty())
            request.paths.append(QDir::cleanPath(QDir(directory).absoluteFilePath(QFile::decodeName(word))));
    }
    request.paths.removeDuplicates();
    return request;
}

QByteArray encoded(const OpenRequest &request) {
    QByteArrayList parts{head.toByteArray(), request.activationToken};
    for (const QString &path : request.paths)
        parts.append(path.toUtf8());
    return parts.join('\0') + QByteArray(2, '\0');
}

std::optional<OpenRequest> decodedRequest(const QByteArray &message) {
    if (!message.endsWith(QByteArrayView("\0\0", 2)))
        return std::nullopt;
    const QList<QByteArray> parts = message.split('\0');
    constexpr qsizetype leastParts = 4; // head, token, and the two empty ones behind the ends
    if (parts.size() < leastParts || parts.first() != head)
        return std::nullopt;
    OpenRequest request{{}, parts.at(1)};
    for (const QByteArray &path : parts.sliced(2, parts.size() - leastParts))
        request.paths.append(QString::fromUtf8(path));
    return request;
}

} // namespace kestor
