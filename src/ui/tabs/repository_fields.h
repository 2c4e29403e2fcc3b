#pragma once

#include "model/project.h"
#include "model/repository_info.h"

#include <QList>
#include <QString>

#include <cstdint>

namespace kestor {

/// One line of what is known of a repository.
struct RepositoryField {
    enum class Type : std::uint8_t { plain, fixed };

    QString label{};
    QString value{};
    Type type = Type::plain;

    friend bool operator==(const RepositoryField &, const RepositoryField &) = default;
};

/// What `info` has, in the order shown and in the words of the project's system.
QList<RepositoryField> repositoryFields(const RepositoryInfo &info, RepositoryKind kind);

/// "Label: value", one line each.
QString copiedText(const QList<RepositoryField> &fields);

} // namespace kestor
