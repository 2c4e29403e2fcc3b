#include "ui/frame/project_list.h"

#include "ui/look/metrics.h"
#include "ui/look/theme.h"

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

void ProjectListModel::setRows(const QList<ProjectRow> &newRows) {
    if (rows == newRows)
        return;
    beginResetModel();
    rows = newRows;
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
    const ProjectRow &row = static_cast<const ProjectListModel *>(index.model())->at(index.row());
    const Theme theme = themeFor(option.palette);
    const bool current = view != nullptr && view->currentIndex() == index;
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    painter->save();
    if (current)
        painter->fillRect(option.rect, view->hasFocus() ? theme.selection : theme.selectionIdle);
    else if (enabled && option.state.testFlag(QStyle::State_MouseOver))
        painter->fillRect(option.rect, mixed(theme.window, theme.selectionIdle, 0.5));
    if (current && view->hasFocus()) {
        painter->setPen(theme.focusRing);
        painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
    }

    QRect area = option.rect.adjusted(paneEdge, 0, -gap, 0);
    const auto drawPart = [&](const QFont &font, const QColor &color, const QString &text, Qt::Alignment alignment) {
        const QFontMetrics metrics(font);
        const QString shown = metrics.elidedText(text, Qt::ElideMiddle, area.width());
        painter->setFont(font);
        painter->setPen(enabled ? color : theme.disabled);
        painter->drawText(area, static_cast<int>(alignment | Qt::AlignVCenter), shown);
        const int taken = metrics.horizontalAdvance(shown) + gap;
        area.adjust(alignment == Qt::AlignLeft ? taken : 0, 0, alignment == Qt::AlignRight ? -taken : 0, 0);
    };
    drawPart(smallFont(option.font), theme.muted, row.kind, Qt::AlignRight);
    drawPart(current ? boldFont(option.font) : option.font, theme.text, row.name, Qt::AlignLeft);
    if (!row.parentFolder.isEmpty() && area.width() > 0)
        drawPart(option.font, theme.muted, row.parentFolder, Qt::AlignLeft);
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
}

void ProjectListView::showCurrent(const QUuid &id) {
    const QScopedValueRollback following(followsState, true);
    settling->stop();
    setCurrentIndex(listModel->index(listModel->rowOf(id)));
}

void ProjectListView::currentChanged(const QModelIndex &current, const QModelIndex &previous) {
    QListView::currentChanged(current, previous);
    if (followsState || !current.isValid())
        return;
    if (keyRepeats)
        settling->start();
    else
        reportChosen();
}

void ProjectListView::reportChosen() {
    settling->stop();
    if (currentIndex().isValid())
        emit projectChosen(listModel->at(currentIndex().row()).id);
}

void ProjectListView::keyPressEvent(QKeyEvent *event) {
    if (moving == Moving::held) {
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
