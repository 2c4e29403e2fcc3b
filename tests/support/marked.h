#pragma once

#include "model/marked_paths.h"

#include <QStringList>

namespace kestor::testing {

/// Those paths, marked in a list that has no others.
inline MarkedPaths marked(const QStringList &paths) {
    QList<WorkingCopyItem> items;
    for (const QString &path : paths)
        items.append(WorkingCopyItem{.path = path});
    return MarkedPaths::all(items);
}

} // namespace kestor::testing
