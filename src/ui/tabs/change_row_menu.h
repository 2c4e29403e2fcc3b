#pragma once

#include <QList>
#include <QString>

class QAction;
class QLocale;
class QMenu;
class QWidget;

namespace kestor {

/// What the menu of a row of the Changes list offers. The actions remain their owner's.
struct ChangeRowMenu {
    QString path; ///< of the row, relative to `projectDirectory`
    QString projectDirectory;
    int tickedPaths = 0;
    QList<QList<QAction *>> tickedGroups; ///< act on the ticked paths, else on the selected one
    QList<QAction *> rowActions;          ///< act on the row, whatever is ticked
    QAction *listAction = nullptr;        ///< acts on all rows
};

/// "Acts on 13 ticked paths", "Acts on 1 ticked path", or "Acts on the selected path" for none.
QString actionPathsText(int tickedPaths, const QLocale &locale);

/// The menu deletes itself when it closes.
QMenu *changeRowMenu(const ChangeRowMenu &content, QWidget *parent);

} // namespace kestor
