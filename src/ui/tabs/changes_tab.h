#pragma once

#include "ui/tabs/change_rows.h"
#include "ui/tabs/list_tab.h"

#include <QList>

class QAction;
class QActionGroup;

namespace kestor {

class ChangeDetail;
class ChangesColumn;

/// The Changes tab: the changed paths with their ticks beside the diff of the selected one.
class ChangesTab final : public ListTab {
    Q_OBJECT

public:
    /// `state` must outlive the tab.
    explicit ChangesTab(AppState &state, QWidget *parent = nullptr);

    /// What the row menu offers for the ticked rows; the actions must outlive the tab.
    void setRowActions(const QList<QAction *> &actions) { tickedActions = actions; }
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
    void addRowActions();

    void showTicks();
    void showEmptyText();

    void chooseRow(const QString &id);
    void setTicks(const QList<int> &records, Tick wanted);
    void openRowMenu(int row, const QPoint &position);

    ChangeRows rows{};
    ChangesColumn *column;
    ChangeDetail *detail;
    QList<QAction *> tickedActions{};
    QActionGroup *rowActions; ///< of the row whose menu is open
    QAction *revertPath;      ///< its data is the path
    QAction *revertAll;
};

} // namespace kestor
