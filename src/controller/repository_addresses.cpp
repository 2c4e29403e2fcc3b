#include "controller/repository_addresses.h"

#include <QRegularExpression>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

bool isWrittenAsOnWindows(const QString &typed) {
    static const QRegularExpression drive(u"^(file:/{2,3}[A-Za-z]:[\\\\/]|[A-Z]:/|[A-Za-z]:\\\\|\\\\\\\\)"_s);
    return typed.contains(drive);
}

bool isRevision(QStringView text) {
    static const QRegularExpression revision(u"^(r?[0-9]+|HEAD|\\{.+\\})?$"_s,
                                             QRegularExpression::CaseInsensitiveOption);
    return revision.match(text).hasMatch();
}

/// Where svn looks for a revision: svn drops slashes at the end and reads escapes first.
QString lastPart(const QString &url) {
    QString text = url;
    while (text.endsWith(u'/'))
        text.chop(1);
    return text.section(u'/', -1);
}

bool hasAt(const QString &part) {
    return part.contains(u'@') || part.contains(u"%40"_s);
}

} // namespace

RepositoryKind repositoryKindOf(const QString &url) {
    const bool isGit = url.endsWith(u".git"_s) || url.startsWith(u"git@"_s) || url.startsWith(u"ssh://git@"_s);
    return isGit ? RepositoryKind::git : RepositoryKind::svn;
}

std::optional<Refusal> addressRefusal(const QString &typed) {
    const QString title = u"Invalid Address"_s;
    if (typed.startsWith(u'-'))
        return Refusal{title, u"An address cannot begin with \"-\": "_s + typed};
    if (isWrittenAsOnWindows(typed)) {
        return Refusal{title, typed + u" is a path as on Windows. Type a URL such as https://example.org/project, or "
                                      "file:///home/me/project for a repository on this computer."_s};
    }
    return std::nullopt;
}

QString svnURLTarget(const QString &url) {
    const QString part = lastPart(url);
    const bool isMisread = hasAt(part) && (!part.contains(u'@') || !isRevision(part.section(u'@', -1)));
    return isMisread ? url + u'@' : url;
}

QString svnNewURLTarget(const QString &url) {
    return hasAt(lastPart(url)) && !url.endsWith(u'@') ? url + u'@' : url;
}

QString svnPrintedURLTarget(const QString &url) {
    return hasAt(lastPart(url)) ? url + u'@' : url;
}

QString fileURL(const QString &path) {
    return QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded);
}

} // namespace kestor
