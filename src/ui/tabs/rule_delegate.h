#pragma once

#include "ui/look/theme.h"
#include "ui/tabs/rule_cells.h"

#include <QStyledItemDelegate>

#include <cstdint>

namespace kestor {

/// Where the keyboard is, for the look of the selected row.
enum class TableFocus : std::uint8_t { elsewhere, inTable };

/// Paints the cells of the user's languages and makes the fields they are typed in.
class RuleDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    RuleDelegate(const RuleCells &shownCells, QObject *parent) : QStyledItemDelegate(parent), cells(shownCells) {}

    void setTheme(const Theme &wanted) { theme = wanted; }
    void setFocus(TableFocus wanted) { focus = wanted; }
    /// The cell that keys act on; it shows while the table has the focus.
    void setCurrent(const QModelIndex &index) { current = index; }
    /// What the buttons of the selected row take at its end.
    void setButtonRoom(int width) { buttonRoom = width; }

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;

private:
    void paintGround(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) const;
    void paintText(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) const;

    const RuleCells &cells;
    Theme theme{};
    TableFocus focus = TableFocus::elsewhere;
    QPersistentModelIndex current{};
    int buttonRoom = 0;
};

} // namespace kestor
