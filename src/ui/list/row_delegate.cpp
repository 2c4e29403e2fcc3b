#include "ui/list/row_delegate.h"

#include "ui/list/path_runs.h"
#include "ui/look/metrics.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionViewItem>
#include <QWidget>

#include <numeric>

namespace kestor {

namespace {

constexpr int boxSide = 16;
/// The label leaves rows that are narrower.
constexpr int labelRowWidth = 340;

/// The square at `x` in the vertical middle of `row`.
QRect squareAt(int x, const QRect &row) {
    return {row.left() + x, row.top() + (row.height() - boxSide) / 2, boxSide, boxSide};
}

const QColor &colorOf(RunRole role, const Theme &theme) {
    switch (role) {
    case RunRole::folder:
        return theme.muted;
    case RunRole::match:
        return theme.accentInk;
    case RunRole::name:
        break;
    }
    return theme.text;
}

bool hasFocus(const QStyleOptionViewItem &option) {
    return option.widget && option.widget->hasFocus();
}

} // namespace

RowDelegate::RowDelegate(const RowModel &model, QObject *parent) : QAbstractItemDelegate(parent), rows(model) {}

bool RowDelegate::isAtTickBox(int x) {
    return x < paneEdge + boxSide + smallGap;
}

QSize RowDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &) const {
    return {1, rowHeight(option.font)};
}

void RowDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const {
    const PathRow row = rows.pathRow(rows.recordAt(index.row()), theme);
    painter->save();
    painter->setFont(option.font);
    paintBackground(*painter, option);
    paintTick(*painter, option, squareAt(paneEdge, option.rect), row.tick);
    const QRect badge = squareAt(paneEdge + boxSide + gap, option.rect);
    paintBadge(*painter, badge, row.badge, theme);
    QRect text = option.rect.adjusted(0, 0, -paneEdge, 0);
    text.setLeft(badge.right() + 1 + gap);
    if (option.rect.width() >= labelRowWidth)
        text.setRight(text.right() - paintLabel(*painter, option, text, row));
    paintPath(*painter, option.font, text, row.path);
    painter->restore();
}

void RowDelegate::paintBackground(QPainter &painter, const QStyleOptionViewItem &option) const {
    if (option.state & QStyle::State_Selected) {
        painter.fillRect(option.rect, hasFocus(option) ? theme.selection : theme.selectionIdle);
        if (!hasFocus(option))
            return;
        painter.setPen(theme.focusRing);
        painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
    } else if (option.state & QStyle::State_MouseOver) {
        painter.fillRect(option.rect, theme.hover);
    }
}

void RowDelegate::paintTick(QPainter &painter, const QStyleOptionViewItem &option, const QRect &rect, Tick tick) const {
    if (tick == Tick::none || !option.widget)
        return;
    QStyle &style = *option.widget->style();
    QStyleOptionButton box;
    box.initFrom(option.widget);
    box.state = tick == Tick::ticked ? QStyle::State_On : QStyle::State_Off;
    box.state.setFlag(QStyle::State_Enabled, access != TickAccess::held);
    if (access == TickAccess::held)
        box.palette.setCurrentColorGroup(QPalette::Disabled);
    const QSize size(style.pixelMetric(QStyle::PM_IndicatorWidth, &box, option.widget),
                     style.pixelMetric(QStyle::PM_IndicatorHeight, &box, option.widget));
    box.rect = QStyle::alignedRect(option.direction, Qt::AlignCenter, size, rect);
    style.drawPrimitive(QStyle::PE_IndicatorCheckBox, &box, &painter, option.widget);
}

int RowDelegate::paintLabel(QPainter &painter, const QStyleOptionViewItem &option, const QRect &rect,
                            const PathRow &row) const {
    const bool conflict = row.labelKind == LabelKind::conflict;
    const QFont font = conflict ? boldFont(smallFont(option.font)) : smallFont(option.font);
    painter.setFont(font);
    painter.setPen(conflict ? theme.delText : theme.muted);
    painter.drawText(rect, Qt::AlignRight | Qt::AlignVCenter, row.label);
    return QFontMetrics(font).horizontalAdvance(row.label) + gap;
}

void RowDelegate::paintPath(QPainter &painter, const QFont &font, const QRect &rect, const QString &path) const {
    const QFontMetricsF plain(font);
    const QFontMetricsF bold(boldFont(font));
    const auto advance = [&](const TextRun &run) {
        return (run.role == RunRole::match ? bold : plain).horizontalAdvance(run.text);
    };
    const auto width = [&](const QString &text) {
        const QList<TextRun> runs = pathRuns({QString(), text}, rows.filter());
        return std::accumulate(runs.begin(), runs.end(), 0.0,
                               [&](double sum, const TextRun &run) { return sum + advance(run); });
    };
    QRectF place(rect);
    for (const TextRun &run : pathRuns(elidedPath(path, rect.width(), width), rows.filter())) {
        painter.setFont(run.role == RunRole::match ? boldFont(font) : font);
        painter.setPen(colorOf(run.role, theme));
        painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, run.text);
        place.setLeft(place.left() + advance(run));
    }
}

} // namespace kestor
