#include "model/project.h"

#include "model/text_table.h"

#include <array>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

constexpr std::array<QStringView, 2> kindTexts{u"svn", u"git"};
static_assert(kindTexts.size() == static_cast<std::size_t>(RepositoryKind::git) + 1);

} // namespace

QStringView rawValue(RepositoryKind kind) {
    return kindTexts.at(static_cast<std::size_t>(kind));
}

std::optional<RepositoryKind> repositoryKindFromRawValue(QStringView text) {
    return enumFromText<RepositoryKind>(kindTexts, text);
}

QString uuidText(const QUuid &id) {
    return id.toString(QUuid::WithoutBraces).toUpper();
}

std::optional<QUuid> uuidFromText(const QString &text) {
    const QUuid id(text);
    if (id.isNull() || uuidText(id) != text.toUpper())
        return std::nullopt;
    return id;
}

QJsonObject toJson(const Project &project) {
    return {{u"id"_s, uuidText(project.id)},
            {u"name"_s, project.name},
            {u"path"_s, project.path},
            {u"kind"_s, rawValue(project.kind).toString()}};
}

std::optional<Project> projectFromJson(const QJsonObject &object) {
    const std::optional<QUuid> id = uuidFromText(object[u"id"].toString());
    if (!id || !object[u"name"].isString() || !object[u"path"].isString())
        return std::nullopt;
    const QJsonValue storedKind = object[u"kind"];
    const std::optional<RepositoryKind> kind = storedKind.isUndefined() || storedKind.isNull()
                                                   ? RepositoryKind::svn
                                                   : repositoryKindFromRawValue(storedKind.toString());
    if (!kind)
        return std::nullopt;
    return Project{*id, object[u"name"].toString(), object[u"path"].toString(), *kind};
}

} // namespace kestor
