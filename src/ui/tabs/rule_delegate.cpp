#include "ui/tabs/rule_delegate.h"

#include "ui/list/language_texts.h"
#include "ui/look/metrics.h"
#include "ui/look/swatch.h"

#include <QLineEdit>
#include <QPainter>

namespace kestor {

namespace {

/// What a field has between its edge and its text.
constexpr int fieldEdge = 5;

RuleColumn columnOf(const QModelIndex &index) {
    return static_cast<RuleColumn>(index.column());
}

QFont cellFont(const QFont &font, const QModelIndex &index) {
    const bool isCode = columnOf(index) == RuleColumn::extension || columnOf(index) == RuleColumn::color;
    return isCode ? fixedFont(font) : font;
}

/// A color stands behind its swatch.
QRect textArea(const QRect &cell, const QModelIndex &index) {
    const int swatch = columnOf(index) == RuleColumn::color ? swatchSide + gap : 0;
    return cell.adjusted(paneEdge + swatch, 0, -smallGap, 0);
}

} // namespace

void RuleDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const {
    painter->save();
    paintGround(*painter, option, index);
    const CustomLanguageRule &rule = cells.ruleAt(index.row());
    if (columnOf(index) == RuleColumn::color)
        paintSwatch(*painter, option.rect.left() + paneEdge, option.rect,
                    languageColor(rule.languageName, rule.colorHex), theme);
    paintText(*painter, option, index);
    painter->restore();
}

/// One frame around the selected row, and one around the cell that keys act on.
void RuleDelegate::paintGround(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) const {
    if (!option.state.testFlag(QStyle::State_Selected))
        return;
    const bool focused = focus == TableFocus::inTable;
    painter.fillRect(option.rect, focused ? theme.selection : theme.selectionIdle);
    if (!focused)
        return;
    const int left = index.column() == 0 ? 0 : -1;
    const int right = index.column() + 1 == cells.columnCount() ? -1 : 1;
    painter.setPen(theme.focusRing);
    painter.setClipRect(option.rect);
    painter.drawRect(option.rect.adjusted(left, 0, right, -1));
    if (index == current && option.widget && option.widget->hasFocus()) // and no field lies upon it
        painter.drawRect(option.rect.adjusted(smallGap, 3, -smallGap, -4));
}

void RuleDelegate::paintText(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) const {
    QRect area = textArea(option.rect, index);
    const bool isFile = columnOf(index) == RuleColumn::syntaxFile;
    if (isFile && option.state.testFlag(QStyle::State_Selected))
        area.setRight(area.right() - buttonRoom);
    const QFont font = cellFont(option.font, index);
    const QString text = index.data().toString();
    const bool isNone = isFile && !cells.ruleAt(index.row()).normalizedSyntaxFilePath();
    painter.setFont(font);
    painter.setPen(isNone ? theme.muted : theme.text);
    painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     QFontMetrics(font).elidedText(text, isFile ? Qt::ElideMiddle : Qt::ElideRight, area.width()));
}

QWidget *RuleDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                    const QModelIndex &index) const {
    auto *field = new QLineEdit(parent);
    field->setFont(cellFont(option.font, index));
    field->setAccessibleName(cells.headerData(index.column(), Qt::Horizontal, Qt::DisplayRole).toString());
    return field;
}

/// Its text stands where that of the cell does.
void RuleDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                        const QModelIndex &index) const {
    editor->setGeometry(textArea(option.rect, index).adjusted(-fieldEdge, 1, 0, -1));
}

} // namespace kestor
