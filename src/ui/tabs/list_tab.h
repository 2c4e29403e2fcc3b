#pragma once

#include "controller/app_state.h"
#include "ui/diff/text_selection.h"
#include "ui/tabs/busy_access.h"
#include "ui/tabs/observers.h"
#include "ui/tabs/tab_page.h"

#include <QHash>
#include <QList>
#include <QUuid>

#include <cstdint>
#include <optional>

class QKeySequence;

namespace kestor {

class DetailPane;
class DiffPane;
class FilteredList;
class RowListView;

/// A tab with lists beside a detail, and what all such tabs have in common: the filter text of each project, the keys
/// that walk through the diff and on to the next row, Esc, and parts that are held while busy.
class ListTab : public TabPage {
    Q_OBJECT

public:
    /// nullptr for a tab that shows no diffs.
    DetailPane *detailPane() const { return details; }
    DiffPane *diffPane() const { return pane; }

    void focusFilter() override;
    /// Of the project shown; kept per project, not saved.
    QString filterText() const;
    /// Clears the filter, else gives the focus to the list; false when there was nothing to do.
    bool escape();

protected:
    /// What a key walks through.
    enum class Walk : std::uint8_t { hunks, files };

    /// `state` must outlive the tab.
    ListTab(AppState &state, QWidget *parent);

    /// To be called once, with the list that the filter belongs to.
    void setParts(QWidget *column, FilteredList *filtered, QWidget *detail);
    void setDetailPane(DetailPane *shownPane);
    /// A list from which Return leads into the diff; Esc leads back to the one that had the focus last.
    void addList(RowListView &list);

    /// Whether the pane shows what is selected, and not what was before.
    virtual bool isDetailUpToDate() const { return true; }
    /// Chooses the next row when there is nothing more to walk through in this one; false when there is none.
    virtual bool chooseBeside(Walk walk, CaretDirection direction);
    /// How parts that act are held while a command runs.
    virtual void setAccess(TickAccess access) = 0;

    void keyPressEvent(QKeyEvent *event) override;

    AppState &app;
    Observers observers{};

private:
    void addKeys();
    void addKeys(const QList<QKeySequence> &keys, Walk walk, CaretDirection direction);
    void walkOn(Walk walk, CaretDirection direction);
    void leaveRow(Walk walk, CaretDirection direction);
    void showProject();
    void focusLastList();

    FilteredList *filteredList = nullptr;
    DetailPane *details = nullptr;
    DiffPane *pane = nullptr; ///< of `details`
    QList<RowListView *> lists{};
    RowListView *lastList = nullptr; ///< that had the focus last
    bool walking = false;            ///< a row is being chosen by a key that walks through diffs
    std::optional<BusyAccess> busyAccess{};
    QHash<QUuid, QString> filterTexts{};
    std::optional<QUuid> shownProject{};
};

} // namespace kestor
