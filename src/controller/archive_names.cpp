#include "controller/archive_names.h"

#include "tools/command_result.h"

#include <QFileInfo>
#include <QTextBoundaryFinder>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

bool isAllowed(QStringView character) {
    constexpr QStringView allowed = u"abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-_.";
    return character.size() == 1 && allowed.contains(character.front());
}

QString withoutOuterMarks(QStringView text) {
    const auto isMark = [](QChar c) {
        return c == u'-' || c == u'.';
    };
    while (!text.isEmpty() && isMark(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && isMark(text.back()))
        text.chop(1);
    return text.toString();
}

} // namespace

QString archiveNameComponent(const QString &text) {
    QString name;
    bool replaced = false;
    // Characters as the user sees them: an accented letter or an emoji is one.
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    for (qsizetype start = 0, end = finder.toNextBoundary(); end > 0; start = end, end = finder.toNextBoundary()) {
        const QStringView character = QStringView(text).sliced(start, end - start);
        if (isAllowed(character))
            name += character;
        else if (!replaced)
            name += u'-';
        replaced = !isAllowed(character);
    }
    const QString component = withoutOuterMarks(name);
    return component.isEmpty() ? u"Archive"_s : component;
}

QString archiveRootName(const Project &project, const LogEntry &entry) {
    return archiveNameComponent(project.name) + u'-' + archiveNameComponent(entry.displayRevision());
}

QString archiveFileName(const QString &path) {
    return QFileInfo(path).suffix() == u"zip"_s ? path : path + u".zip"_s;
}

QString archiveRevisionToken(const LogEntry &entry, const Project &project) {
    if (project.kind == RepositoryKind::svn)
        return QString::number(entry.revision);
    const QString hash = entry.commitHash.value_or(QString());
    if (hash.isEmpty())
        throw SVNClientError::launchFailed(u"The selected archive entry does not include a Git commit hash."_s);
    return hash;
}

} // namespace kestor
