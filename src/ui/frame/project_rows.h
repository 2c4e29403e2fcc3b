#pragma once

#include "model/project.h"
#include "ui/list/list_filter.h"

#include <QList>
#include <QString>
#include <QUuid>

namespace kestor {

/// What the sidebar says of a project.
struct ProjectRow {
    QUuid id{};
    QString name{};
    QString parentFolder{}; ///< tells projects of the same name apart; "" where the name is enough
    QString kind{};         ///< "SVN" or "Git"
    QString path{};

    friend bool operator==(const ProjectRow &, const ProjectRow &) = default;
};

/// "SVN" or "Git".
QString kindTitle(RepositoryKind kind);

/// One row per project whose name matches.
QList<ProjectRow> projectRows(const QList<Project> &projects, const ListFilter &filter);

} // namespace kestor
