#pragma once

#include "ui/look/placeholder.h"

#include <QString>
#include <QWidget>

#include <cstdint>

class QBoxLayout;

namespace kestor {

class FilterField;
class RowListView;
class RowModel;

/// Whether all rows are there, or more are still being loaded.
enum class ListExtent : std::uint8_t { part, whole };

/// A list below a bar with its filter. While it shows no row, it says why.
class FilteredList final : public QWidget {
    Q_OBJECT

public:
    /// `shownRows` must outlive the list. `filterName` is the field's placeholder, `listName` is read aloud.
    FilteredList(RowModel &shownRows, const QString &filterName, const QString &listName, QWidget *parent = nullptr);

    RowListView &list() { return *rowList; }
    FilterField &filter() { return *filterField; }
    const FilterField &filter() const { return *filterField; }
    void focusFilter();

    /// `part` brings room of `smallGap` around it.
    void addBeforeFilter(QWidget *part);
    void addAfterFilter(QWidget *part);
    /// Puts a part between the bar and the list.
    void addHeader(QWidget *header);
    /// Says of a list that is not whole yet that more may follow.
    void setExtent(ListExtent extent);
    /// What the list says while there are no rows at all.
    void setEmptyText(const PlaceholderText &text);
    /// Draws the button of that text as disabled.
    void setEmptyActionHeld(bool held);

signals:
    /// There are other rows, or the filter leaves others.
    void rowsChanged();
    /// The button of the text for a list without rows was clicked.
    void emptyActionRequested();

private:
    QWidget *bar();
    QWidget *body();
    void connectParts();
    void narrow(const QString &text);
    void enterList();
    void updateCounts();
    void clickedPlaceholder();
    void holdAction();

    RowModel &rows;
    FilterField *filterField;
    RowListView *rowList;
    Placeholder *placeholder;
    QBoxLayout *parts;
    QBoxLayout *barParts = nullptr;
    PlaceholderText emptyText{};
    bool emptyActionHeld = false;
    ListExtent shownExtent = ListExtent::whole;
};

} // namespace kestor
