#pragma once

#include "model/working_copy_item.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringView>

namespace kestor {

/// A Git status listing with what the records have no field for.
struct GitStatus {
    QList<WorkingCopyItem> items{};     ///< unsorted
    QHash<QString, QString> oldNames{}; ///< new path of a rename or copy to its old path

    friend bool operator==(const GitStatus &, const GitStatus &) = default;
};

/// Reads `git status --porcelain=v1`, names with quotes, line feeds, tabs or " -> " included. Any thread.
GitStatus gitStatus(QStringView text);

} // namespace kestor
