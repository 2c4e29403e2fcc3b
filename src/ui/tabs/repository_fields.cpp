#include "ui/tabs/repository_fields.h"

#include "controller/display_date.h"

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

/// "r18229 by dev.one, 18 Nov 2025 16:02", or what there is of it.
std::optional<QString> lastChange(const RepositoryInfo &info, RepositoryKind kind) {
    const QString sign = kind == RepositoryKind::svn ? u"r"_s : QString();
    QString change = info.lastChangedRevision ? sign + *info.lastChangedRevision : QString();
    if (info.lastChangedAuthor)
        change += (change.isEmpty() ? u"by "_s : u" by "_s) + *info.lastChangedAuthor;
    if (info.lastChangedDate)
        change += (change.isEmpty() ? QString() : u", "_s) + displayDate(*info.lastChangedDate);
    return change.isEmpty() ? std::nullopt : std::optional(change);
}

} // namespace

QList<RepositoryField> repositoryFields(const RepositoryInfo &info, RepositoryKind kind) {
    using Type = RepositoryField::Type;
    const bool isGit = kind == RepositoryKind::git;
    const struct {
        QString label;
        std::optional<QString> value;
        Type type;
    } rows[] = {
        {u"Working copy root"_s, info.workingCopyRoot, Type::plain},
        {u"URL"_s, info.url, Type::plain},
        {u"Relative URL"_s, info.relativeURL, Type::plain},
        {u"Repository root"_s, info.repositoryRoot, Type::plain},
        {u"Repository UUID"_s, info.repositoryUUID, Type::fixed},
        {isGit ? u"Commit"_s : u"Revision"_s, info.revision, isGit ? Type::fixed : Type::plain},
        {isGit ? u"Branch"_s : u"Working revision"_s, info.workingRevision, Type::plain},
        {u"Last changed"_s, lastChange(info, kind), Type::plain},
    };
    QList<RepositoryField> fields;
    for (const auto &row : rows) {
        if (row.value)
            fields.append({row.label, *row.value, row.type});
    }
    return fields;
}

QString copiedText(const QList<RepositoryField> &fields) {
    QString text;
    for (const RepositoryField &field : fields)
        text += field.label + u": "_s + field.value + u'\n';
    return text;
}

} // namespace kestor
