#include "ui/frame/project_rows.h"

#include <QFileInfo>
#include <QHash>

namespace kestor {

using namespace Qt::StringLiterals;

QString kindTitle(RepositoryKind kind) {
    switch (kind) {
    case RepositoryKind::svn:
        return u"SVN"_s;
    case RepositoryKind::git:
        return u"Git"_s;
    }
    return {};
}

QList<ProjectRow> projectRows(const QList<Project> &projects, const ListFilter &filter) {
    QHash<QString, int> uses;
    for (const Project &project : projects)
        ++uses[project.name];
    QList<ProjectRow> rows;
    for (const Project &project : projects) {
        if (!filter.matches(project.name))
            continue;
        const QString parent = QFileInfo(QFileInfo(project.path).path()).fileName();
        rows.append({project.id, project.name, uses.value(project.name) > 1 ? parent : QString(),
                     kindTitle(project.kind), project.path});
    }
    return rows;
}

} // namespace kestor
