#pragma once

#include "model/json_list_store.h"
#include "model/project.h"

#include <QList>

namespace kestor {

/// The project list in the preferences, under "KestorSVN.projects". Main thread only.
class ProjectStore {
public:
    /// `settings` must outlive the store.
    explicit ProjectStore(QSettings &settings);

    /// The stored projects in stored order; empty when nothing is stored or any element does not decode.
    QList<Project> load() const;
    /// Stores the whole list. Bytes that did not decode are kept under "KestorSVN.projects.unreadable" first.
    void save(const QList<Project> &projects);

private:
    JsonListStore store;
};

} // namespace kestor
