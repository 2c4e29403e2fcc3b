#pragma once

#include "ui/tabs/change_rows.h"
#include "ui/tabs/list_tab.h"

#include <QList>

class QAction;
class QActionGroup;

namespace kestor {

class ChangeDetail;
class ChangesColumn;

/// What the menu of a row offers for the ticked rows, else the selected one. The actions must outlive the tab.
struct ChangeRowActions {
    QList<QAction *> edits{};
    QAction *resolveUsingWorking = nullptr;
    QList<QAction *> resolveUsingOneSide{};
    QList<QAction *> svnEdits{}; ///< that Git does not know
};

/// The Changes tab: the changed paths with their ticks beside the diff of the selected one.
class ChangesTab final : public ListTab {
    Q_OBJECT

public:
    /// `state` must outlive the tab.
    explicit ChangesTab(AppState &state, QWidget *parent = nullptr);

    void setRowActions(const ChangeRowActions &actions) { tickedActions = actions; }
    /// List, detail, message.
    QList<QWidget *> focusPanes() const override;
    void focusMessage();

    /// The height of the commit panel below the list; 0 until somebody has set one.
    int panelHeight() const;
    void setPanelHeight(int height);

protected:
    bool isDetailUpToDate() const override;
    void setAccess(TickAccess access) override;

private:
    void observeState();
    void connectColumn();
    QAction *newRowAction(const QString &text, QCoro::Task<> (*operation)(AppState &, const QString &path));

    void showTicks();
    void showEmptyText();

    void chooseRow(const QString &id);
    void setTicks(const QList<int> &records, Tick wanted);
    QList<QAction *> resolutions(const QList<WorkingCopyItem> &items) const;
    QList<QList<QAction *>> tickedGroups(RepositoryKind kind, const QList<WorkingCopyItem> &acted) const;
    /// What acts on the selected row alone: resolving, too, when none of several ticked ones is in conflict.
    QList<QAction *> actionsOfRow(RepositoryKind kind, const QList<WorkingCopyItem> &acted) const;
    void openRowMenu(int row, const QPoint &position);

    ChangeRows rows{};
    ChangesColumn *column;
    ChangeDetail *detail;
    ChangeRowActions tickedActions{};
    bool loadEnded = false;   ///< something has run, and nothing does now
    QActionGroup *rowActions; ///< of the row whose menu is open
    QString menuPath{};       ///< of that row
    QAction *revertPath;
    QAction *blamePath;
    QAction *listProperties;
    QAction *revertAll;
};

} // namespace kestor
