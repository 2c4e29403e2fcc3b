#include "ui/frame/project_list.h"

#include "ui/list/row_text_painter.h"
#include "ui/look/focus_frame.h"
#include "ui/look/metrics.h"
#include "ui/look/theme.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QTimer>

#include <algorithm>
#include <chrono>

namespace kestor {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int leastRowHeight = 28;
constexpr auto settlingTime = 60ms;

} // namespace

void ProjectListModel::setRows(const QList<ProjectRow> &newRows, const ListFilter &filter) {
    if (rows == newRows && shownFilter == filter)
        return;
    beginResetModel();
    rows = newRows;
    shownFilter = filter;
    endResetModel();
}

int ProjectListModel::rowOf(const QUuid &id) const {
    const auto row = std::ranges::find(rows, id, &ProjectRow::id);
    return row == rows.end() ? -1 : static_cast<int>(row - rows.begin());
}

int ProjectListModel::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows.size());
}

QVariant ProjectListModel::data(const QModelIndex &index, int role) const {
    const ProjectRow &row = rows.at(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return row.name;
    case Qt::ToolTipRole:
        return row.path;
    case Qt::AccessibleTextRole:
        return u"%1, %2, %3"_s.arg(row.name, row.kind, row.path);
    default:
        return {};
    }
}

QSize ProjectDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &) const {
    return {0, qMax(leastRowHeight, option.fontMetrics.height() + 10)};
}

void ProjectDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const {
    const auto *view = qobject_cast<const ProjectListView *>(option.widget);
    const auto *model = static_cast<const ProjectListModel *>(index.model());
    const ProjectRow &row = model->at(index.row());
    Theme theme = themeFor(option.palette);
    const bool current = view != nullptr && view->currentIndex() == index;
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    painter->save();
    if (current)
        painter->fillRect(option.rect, view->hasFocus() ? theme.selection : theme.selectionIdle);
    if (!current && enabled && option.state.testFlag(QStyle::State_MouseOver))
        painter->fillRect(option.rect, mixed(theme.window, theme.selectionIdle, 0.5));
    if (current && view->hasFocus()) {
        painter->setPen(theme.focusRing);
        painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
    }

    if (!enabled)
        theme.text = theme.muted = theme.accentInk = theme.disabled;
    RowTextPainter texts(*painter, theme, model->filter());
    RowTextPainter unsearched = texts.unsearched();
    QRect room = option.rect.adjusted(paneEdge, 0, -gap, 0);
    room.setRight(room.right() - gap -
                  unsearched.paintAtRight(room, row.kind, smallFont(option.font), RunRole::folder));
    const QFont nameFont = current ? boldFont(option.font) : option.font;
    room.setLeft(room.left() + gap + texts.paintText(room, row.name, nameFont, RunRole::name, Qt::ElideMiddle));
    unsearched.paintText(room, row.parentFolder, option.font, RunRole::folder, Qt::ElideMiddle);
    painter->restore();
}

ProjectListView::ProjectListView(QWidget *parent)
    : QListView(parent), listModel(new ProjectListModel(this)), settling(new QTimer(this)) {
    setModel(listModel);
    setItemDelegate(new ProjectDelegate(this));
    setUniformItemSizes(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setMouseTracking(true);
    setAccessibleName(u"Projects"_s);
    viewport()->setBackgroundRole(QPalette::Window);
    settling->setSingleShot(true);
    settling->setInterval(settlingTime);
    connect(settling, &QTimer::timeout, this, &ProjectListView::reportChosen);
}

void ProjectListView::setMoving(Moving newMoving) {
    moving = newMoving;
    if (moving == Moving::held && settling->isActive())
        showCurrent(selected);
}

void ProjectListView::contextMenuEvent(QContextMenuEvent *event) {
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = byKey ? currentIndex() : indexAt(event->pos());
    if (!index.isValid() || index != currentIndex())
        return;
    if (byKey)
        scrollTo(index);
    emit menuRequested(byKey ? viewport()->mapToGlobal(visualRect(index).bottomLeft()) : event->globalPos());
}

void ProjectListView::showCurrent(const QUuid &id) {
    const QScopedValueRollback following(followsState, true);
    settling->stop();
    selected = id;
    setCurrentIndex(listModel->index(listModel->rowOf(id)));
}

void ProjectListView::currentChanged(const QModelIndex &current, const QModelIndex &previous) {
    QListView::currentChanged(current, previous);
    if (current.isValid() != previous.isValid())
        viewport()->update(); // the frame of a list without a current row comes or goes
    if (followsState || !current.isValid())
        return;
    if (keyRepeats) {
        settling->start();
    } else {
        reportChosen();
    }
}

void ProjectListView::reportChosen() {
    settling->stop();
    if (currentIndex().isValid())
        emit projectChosen(listModel->at(currentIndex().row()).id);
}

/// The base class would choose the first row when the filter hides the current one.
void ProjectListView::focusInEvent(QFocusEvent *event) {
    QAbstractScrollArea::focusInEvent(event); // NOLINT(bugprone-parent-virtual-call)
    viewport()->update();
}

/// A row that is current shows the focus itself.
void ProjectListView::paintEvent(QPaintEvent *event) {
    QListView::paintEvent(event);
    if (hasFocus() && !currentIndex().isValid())
        paintFocusFrame(*viewport());
}

/// Esc is for the filter above.
void ProjectListView::keyPressEvent(QKeyEvent *event) {
    if (moving == Moving::held || event->key() == Qt::Key_Escape) {
        event->ignore();
        return;
    }
    const QScopedValueRollback repeating(keyRepeats, event->isAutoRepeat());
    QListView::keyPressEvent(event);
}

bool ProjectListView::viewportEvent(QEvent *event) {
    const bool presses = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick ||
                         event->type() == QEvent::MouseMove;
    return (presses && moving == Moving::held) || QListView::viewportEvent(event);
}

} // namespace kestor
