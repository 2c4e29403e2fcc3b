#pragma once

#include "controller/app_state.h"
#include "ui/diff/text_selection.h"
#include "ui/tabs/change_rows.h"

#include <QHash>
#include <QList>
#include <QProperty>
#include <QTimer>
#include <QUuid>
#include <QWidget>

#include <utility>
#include <vector>

class QAction;
class QActionGroup;
class QSplitter;

namespace kestor {

class ChangeDetail;
class ChangesColumn;
class DetailPane;
class DiffPane;
class LineSplitter;

/// The Changes tab: the changed paths with their ticks beside the diff of the selected one.
class ChangesTab final : public QWidget {
    Q_OBJECT

public:
    /// `state` must outlive the tab.
    explicit ChangesTab(AppState &state, QWidget *parent = nullptr);

    /// List column and detail; its state is the frame's to save and share.
    QSplitter &splitter();
    DetailPane &detailPane() { return *details; }
    DiffPane &diffPane() { return *pane; }
    /// What the row menu offers for the ticked rows; the actions must outlive the tab.
    void setRowActions(const QList<QAction *> &actions) { tickedActions = actions; }
    /// The widgets that take the focus in turn: list, detail, message.
    QList<QWidget *> focusPanes() const;

    void focusFilter();
    void focusMessage();
    /// Of the project shown; kept per project, not saved.
    QString filterText() const;
    /// Clears the filter, else gives the focus to the list; false when there was nothing to do.
    bool escape();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    template <typename Value, typename Show>
    void watch(QProperty<Value> &property, Show show) {
        show();
        observers.push_back(property.addNotifier(std::move(show)));
    }
    void observeState();
    void connectColumn();
    void addRowActions();
    void addKeys();
    void addKeys(const QList<QKeySequence> &keys, void (ChangesTab::*step)(CaretDirection), CaretDirection direction);

    void showProject();
    void showChanges();
    void showTicks();
    void showBusy();
    void showEmptyText();

    void chooseRow(const QString &id);
    void setTicks(const QList<int> &records, Tick wanted);
    void openRowMenu(int row, const QPoint &position);
    void stepHunk(CaretDirection direction);
    void stepFile(CaretDirection direction);
    void chooseBeside(CaretDirection direction);

    AppState &app;
    ChangeRows rows{};
    ChangesColumn *column;
    DetailPane *details;
    DiffPane *pane; ///< of `details`
    LineSplitter *parts;
    ChangeDetail *detail;
    QList<QAction *> tickedActions{};
    QActionGroup *rowActions; ///< of the row whose menu is open
    QAction *revertPath;      ///< its data is the path
    QTimer holding{};
    QHash<QUuid, QString> filterTexts{};
    std::optional<QUuid> shownProject{};
    bool wasBusy = false;
    std::vector<QPropertyNotifier> observers{};
};

} // namespace kestor
