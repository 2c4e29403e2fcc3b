#include "ui/list/revision_row.h"

#include <QStringList>

namespace kestor {

QString accessibleText(const RevisionRow &row) {
    QStringList parts{row.message, row.revision, row.author, row.date, row.status};
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

} // namespace kestor
