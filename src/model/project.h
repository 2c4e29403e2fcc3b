#pragma once

#include <QJsonObject>
#include <QString>
#include <QUuid>

#include <cstdint>
#include <optional>

namespace kestor {

enum class RepositoryKind : std::uint8_t { svn, git };

/// "svn" or "git", as stored.
QStringView rawValue(RepositoryKind kind);
std::optional<RepositoryKind> repositoryKindFromRawValue(QStringView text);

/// One registered folder. Identified by `id`.
struct Project {
    QUuid id{};
    QString name{};                            ///< last path component of the folder when it was added
    QString path{};                            ///< absolute path of the working-copy root or repository folder
    RepositoryKind kind = RepositoryKind::svn; ///< lists written before Git support lack it and read as svn

    friend bool operator==(const Project &, const Project &) = default;
};

/// The canonical upper-case hyphenated form, without braces.
QString uuidText(const QUuid &id);
/// Reads the hyphenated form in either case; nothing for any other text.
std::optional<QUuid> uuidFromText(const QString &text);

QJsonObject toJson(const Project &project);
/// Nothing when "id", "name" or "path" is missing or of another type, or "kind" is present and unknown.
std::optional<Project> projectFromJson(const QJsonObject &object);

} // namespace kestor
