#include "ui/tabs/rule_table.h"

#include "ui/look/flat_button.h"
#include "ui/look/focus_frame.h"
#include "ui/look/icons.h"
#include "ui/look/metrics.h"
#include "ui/tabs/rule_delegate.h"
#include "ui/tabs/rule_header.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QToolButton>

namespace kestor {

namespace {

constexpr int buttonSide = 28;
/// Two buttons, each with a gap behind it.
constexpr int buttonRoom = 2 * (buttonSide + paneEdge);

/// How wide a column is, and how narrow it becomes for the syntax file and its buttons.
struct ColumnWidth {
    RuleColumn column;
    int wanted;
    int least;
};

/// The first gives way first.
constexpr ColumnWidth columnWidths[] = {
    {RuleColumn::language, 132, 72},
    {RuleColumn::color, 116, 100},
    {RuleColumn::extension, 84, 64},
};
constexpr int fileWidth = buttonRoom + 48;

int ruleHeight(const QFont &font) {
    return rowHeight(font) + smallGap;
}

int columnIndex(RuleColumn column) {
    return static_cast<int>(column);
}

} // namespace

RuleTable::RuleTable(QWidget *parent)
    : QTableView(parent), delegate(new RuleDelegate(cells, this)),
      choose(rowButton(Icon::folder, tr("Choose syntax file"), &RuleTable::syntaxFileWanted)),
      clear(rowButton(Icon::close, tr("Clear syntax file"), &RuleTable::syntaxFileUnwanted)) {
    setAccessibleName(tr("Custom language rules"));
    setItemDelegate(delegate);
    delegate->setButtonRoom(buttonRoom);
    setHorizontalHeader(new RuleHeader(this));
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    setFrameShape(QFrame::NoFrame);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setShowGrid(false);
    setTabKeyNavigation(false);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(EditKeyPressed | DoubleClicked);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setModel(&cells);
    connect(&cells, &RuleCells::ruleTyped, this, &RuleTable::ruleTyped);
    connect(&cells, &RuleCells::colorLeft, this, &RuleTable::colorLeft);
    connect(qApp, &QApplication::focusChanged, this, &RuleTable::showFocus);
    applyLook();
}

QToolButton *RuleTable::rowButton(Icon icon, const QString &name, void (RuleTable::*wanted)(const QUuid &)) {
    QToolButton *button = flatButton(icon, name, viewport());
    button->hide();
    connect(button, &QToolButton::clicked, this, [this, wanted] { ask(wanted); });
    return button;
}

void RuleTable::ask(void (RuleTable::*wanted)(const QUuid &)) {
    if (const std::optional<QUuid> rule = currentRule())
        emit(this->*wanted)(*rule);
}

void RuleTable::setRules(const QList<CustomLanguageRule> &rules) {
    const std::optional<QUuid> rule = currentRule();
    const int row = currentIndex().row();
    const int column = qMax(0, currentIndex().column());
    cells.publish(rules);
    fitHeight();
    if (rule && !currentIndex().isValid() && !rules.isEmpty()) {
        const int known = cells.rowOf(*rule);
        setCurrentIndex(cells.index(known >= 0 ? known : qMin(row, cells.rowCount() - 1), column));
    }
    showCurrent();
}

std::optional<QUuid> RuleTable::currentRule() const {
    return currentIndex().isValid() ? std::optional(cells.ruleAt(currentIndex().row()).id) : std::nullopt;
}

void RuleTable::beginRule(const QUuid &id) {
    setCurrentIndex(cells.index(cells.rowOf(id), columnIndex(RuleColumn::extension)));
    setFocus(Qt::OtherFocusReason);
    typeIntoCurrent();
}

void RuleTable::typeIntoCurrent() {
    edit(currentIndex(), EditKeyPressed, nullptr);
}

/// Nobody types the path of a syntax file.
bool RuleTable::edit(const QModelIndex &index, EditTrigger trigger, QEvent *event) {
    const bool begins = trigger == EditKeyPressed || trigger == DoubleClicked;
    if (!begins || index.column() != columnIndex(RuleColumn::syntaxFile))
        return QTableView::edit(index, trigger, event);
    ask(&RuleTable::syntaxFileWanted);
    return true;
}

void RuleTable::currentChanged(const QModelIndex &index, const QModelIndex &previous) {
    QTableView::currentChanged(index, previous);
    showCurrent();
}

void RuleTable::showCurrent() {
    delegate->setCurrent(currentIndex());
    placeButtons();
    viewport()->update();
    emit currentCellChanged();
}

QRect RuleTable::currentCell() const {
    return visualRect(currentIndex()).translated(viewport()->pos());
}

void RuleTable::keyPressEvent(QKeyEvent *event) {
    const bool isTyping = state() == EditingState;
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && !isTyping && !(event->modifiers() & ~Qt::KeypadModifier))
        return typeIntoCurrent();
    if (event->key() == Qt::Key_Delete && !isTyping)
        return ask(&RuleTable::removalWanted);
    if (event->key() == Qt::Key_Escape)
        return event->ignore();
    QTableView::keyPressEvent(event);
}

void RuleTable::contextMenuEvent(QContextMenuEvent *event) {
    if (!currentIndex().isValid())
        return;
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (currentIndex().column() != columnIndex(RuleColumn::syntaxFile))
        menu->addAction(tr("Edit"), this, &RuleTable::typeIntoCurrent);
    menu->addAction(tr("Choose Syntax File..."), this, [this] { ask(&RuleTable::syntaxFileWanted); });
    QAction *clearing = menu->addAction(tr("Clear Syntax File"), this, [this] { ask(&RuleTable::syntaxFileUnwanted); });
    clearing->setEnabled(clear->isEnabled());
    menu->addSeparator();
    menu->addAction(tr("Remove Rule"), this, [this] { ask(&RuleTable::removalWanted); });
    menu->popup(byKey ? viewport()->mapToGlobal(visualRect(currentIndex()).bottomLeft()) : event->globalPos());
}

void RuleTable::resizeEvent(QResizeEvent *event) {
    QTableView::resizeEvent(event);
    fitColumns();
    placeButtons();
}

void RuleTable::paintEvent(QPaintEvent *event) {
    QTableView::paintEvent(event);
    if (cells.rowCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(themeFor(palette()).muted);
    painter.drawText(viewport()->rect().adjusted(paneEdge, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, tr("No rules"));
    painter.end();
    if (hasFocus())
        paintFocusFrame(*viewport());
}

void RuleTable::changeEvent(QEvent *event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        applyLook();
}

void RuleTable::applyLook() {
    delegate->setTheme(themeFor(palette()));
    verticalHeader()->setDefaultSectionSize(ruleHeight(font()));
    fitHeight();
    fitColumns();
    viewport()->update();
}

void RuleTable::showFocus() {
    const QWidget *focused = QApplication::focusWidget();
    const bool inTable = focused == this || isAncestorOf(focused);
    delegate->setFocus(inTable ? TableFocus::inTable : TableFocus::elsewhere);
    viewport()->update();
}

void RuleTable::fitHeight() {
    setFixedHeight(horizontalHeader()->sizeHint().height() + qMax(1, cells.rowCount()) * ruleHeight(font()));
}

void RuleTable::fitColumns() {
    int missing = fileWidth - viewport()->width();
    for (const ColumnWidth &width : columnWidths)
        missing += scaledWidth(width.wanted, font());
    for (const ColumnWidth &width : columnWidths) {
        const int wanted = scaledWidth(width.wanted, font());
        const int taken = qBound(0, missing, wanted - scaledWidth(width.least, font()));
        setColumnWidth(columnIndex(width.column), wanted - taken);
        missing -= taken;
    }
}

void RuleTable::placeButtons() {
    const QModelIndex current = currentIndex();
    const bool hasFile = current.isValid() && cells.ruleAt(current.row()).normalizedSyntaxFilePath();
    if (!hasFile && clear->hasFocus())
        choose->setFocus(Qt::OtherFocusReason);
    clear->setEnabled(hasFile);
    const QRect cell = visualRect(current.siblingAtColumn(columnIndex(RuleColumn::syntaxFile)));
    int left = cell.right() + 1;
    for (QToolButton *button : {clear, choose}) {
        left -= paneEdge + buttonSide;
        button->setGeometry(left, cell.top(), buttonSide, cell.height());
        button->setVisible(current.isValid());
    }
}

} // namespace kestor
