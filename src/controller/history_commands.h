#pragma once

#include "model/project.h"
#include "model/prompt_field.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace kestor {

/// The prompt fields "Path" (key "path") and "Revision" ("revision") with what they offer.
QList<PromptField> pathAndRevisionFields(const QString &path, const QString &revision);

/// The vectors of the commands on revisions. `revision` is a number, a hash or what the user typed; paths and targets
/// are as the tool takes them.
QStringList rollbackArguments(RepositoryKind kind, const QString &revision);
/// `path` may be "": everything.
QStringList diffAgainstArguments(RepositoryKind kind, const QString &revision, const QString &path);
QStringList pullFileArguments(RepositoryKind kind, const QString &revision, const QString &path);
/// `revision` may be "": the newest.
QStringList catArguments(RepositoryKind kind, const QString &revision, const QString &target);

} // namespace kestor
