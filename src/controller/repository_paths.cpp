#include "controller/repository_paths.h"

#include <QStringTokenizer>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

QStringView withoutOuterSlashes(QStringView path) {
    while (path.startsWith(u'/'))
        path = path.sliced(1);
    while (path.endsWith(u'/'))
        path.chop(1);
    return path;
}

/// `url`, which is escaped already, with the components of `path` behind it, which are not.
std::optional<QString> urlBelow(const std::optional<QString> &url, const QString &path, qint64 peg) {
    const QUrl base(url.value_or(QString()), QUrl::StrictMode);
    if (!base.isValid() || base.scheme().isEmpty())
        return std::nullopt;
    QByteArray whole = base.toEncoded(QUrl::StripTrailingSlash);
    for (const QStringView component : qTokenize(path, u'/', Qt::SkipEmptyParts)) {
        // Subversion leaves the same characters as they are.
        whole += '/' + QUrl::toPercentEncoding(component.toString(), "!$&'()*+,:=@");
    }
    return QString::fromLatin1(whole) + u'@' + QString::number(peg);
}

} // namespace

QString repositoryFolder(const QString &relativeURL) {
    QString escaped = relativeURL;
    escaped.remove(u'^');
    return withoutOuterSlashes(QUrl::fromPercentEncoding(escaped.toUtf8())).toString();
}

QStringView workingCopyPath(QStringView repositoryPath, QStringView folder) {
    const QStringView path = withoutOuterSlashes(repositoryPath);
    if (folder.isEmpty() || !path.startsWith(folder))
        return path;
    if (path.size() == folder.size())
        return u".";
    return path[folder.size()] == u'/' ? path.sliced(folder.size() + 1) : path;
}

std::optional<QString> repositoryURLForRepositoryPath(const RepositoryInfo &info, const QString &path, qint64 peg) {
    return urlBelow(info.repositoryRoot, path, peg);
}

std::optional<QString> repositoryURLForWorkingCopyPath(const RepositoryInfo &info, const QString &path, qint64 peg) {
    return urlBelow(info.url, path, peg);
}

} // namespace kestor
