#pragma once

#include <QSet>
#include <QString>
#include <QStringList>
#include <QStringView>

namespace kestor {

/// Folders of a working copy, each with all its parents up to the root.
class FolderSet {
public:
    /// Adds the normalised folder and its parents.
    void insert(QStringView folder);
    /// Adds the folders on the way to the normalised path.
    void insertParentsOf(QStringView path);

    bool contains(const QString &folder) const { return folders.contains(folder); }
    /// Shallower folders first, those of one depth in the localised standard order; the root, "", begins.
    QStringList sorted() const;

private:
    QSet<QString> folders{QString()};
    QString latest; ///< neighbouring paths mostly lie in the same folder
};

} // namespace kestor
