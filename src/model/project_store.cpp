#include "model/project_store.h"

namespace kestor {

ProjectStore::ProjectStore(QSettings &settings) : store(settings, QStringLiteral("KestorSVN.projects")) {}

QList<Project> ProjectStore::load() const {
    return decodedList(store, projectFromJson).value_or(QList<Project>());
}

void ProjectStore::save(const QList<Project> &projects) {
    store.save(encodedList(projects), decodedList(store, projectFromJson).has_value());
}

} // namespace kestor
