#include "ui/list/row_delegate.h"

#include "ui/list/revision_columns.h"
#include "ui/list/row_text_painter.h"
#include "ui/look/metrics.h"
#include "ui/look/swatch.h"

#include <QAbstractScrollArea>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionViewItem>

#include <variant>

namespace kestor {

namespace {

/// The label leaves rows that are narrower.
constexpr int labelRowWidth = 340;
/// What the share of a language takes at the end of its row.
constexpr int shareWidth = 64;

/// The square of a tick box or badge at `x` in the vertical middle of `line`.
QRect squareAt(int x, const QRect &line) {
    return {line.left() + x, line.top() + (line.height() - badgeSide) / 2, badgeSide, badgeSide};
}

/// What is left of a row behind what ends at `end`.
QRect textArea(const QRect &row, int end) {
    QRect area = row.adjusted(0, 0, -paneEdge, 0);
    area.setLeft(end);
    return area;
}

bool hasFocus(const QStyleOptionViewItem &option) {
    return option.widget && option.widget->hasFocus();
}

} // namespace

RowDelegate::RowDelegate(const RowModel &model, QObject *parent) : QAbstractItemDelegate(parent), rows(model) {}

bool RowDelegate::isAtTickBox(int x) {
    return x < paneEdge + badgeSide + smallGap;
}

bool RowDelegate::hasColumns(const QFont &font, int width) const {
    return rows.shape() == RowShape::columns && hasRoomForColumns(width, font);
}

int RowDelegate::rowHeight(const QFont &font, int width) const {
    const bool oneLine = rows.shape() == RowShape::oneLine || hasColumns(font, width);
    return oneLine ? kestor::rowHeight(font) : twoLineRowHeight(font);
}

QSize RowDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &) const {
    const auto *view = qobject_cast<const QAbstractScrollArea *>(option.widget);
    return {1, rowHeight(option.font, view ? view->viewport()->width() : option.rect.width())};
}

void RowDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const {
    const RowContent content = rows.content(rows.recordAt(index.row()), theme);
    painter->save();
    painter->setFont(option.font);
    paintBackground(*painter, option);
    std::visit([&](const auto &row) { paintRow(*painter, option, row); }, content);
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

void RowDelegate::paintRow(QPainter &painter, const QStyleOptionViewItem &option, const PathRow &row) const {
    paintTick(painter, option, squareAt(paneEdge, option.rect), row.tick);
    const int boxRoom = row.tick == Tick::noColumn ? 0 : badgeSide + gap;
    const QRect badge = squareAt(paneEdge + boxRoom, option.rect);
    paintBadge(painter, badge, row.badge, theme);
    QRect text = textArea(option.rect, badge.right() + 1 + gap);
    if (option.rect.width() >= labelRowWidth)
        text.setRight(text.right() - paintLabel(painter, option.font, text, row) - gap);
    RowTextPainter(painter, theme, rows.filter()).paintPath(text, row.path, option.font);
}

void RowDelegate::paintTick(QPainter &painter, const QStyleOptionViewItem &option, const QRect &rect, Tick tick) const {
    if (tick == Tick::noColumn || tick == Tick::none || !option.widget)
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

int RowDelegate::paintLabel(QPainter &painter, const QFont &rowFont, const QRect &rect, const PathRow &row) const {
    const bool conflict = row.labelKind == LabelKind::conflict;
    const QFont small = row.labelKind == LabelKind::revision ? fixedFont(rowFont) : smallFont(rowFont);
    const QFont font = conflict ? boldFont(small) : small;
    painter.setFont(font);
    painter.setPen(conflict ? theme.delText : theme.muted);
    painter.drawText(rect, Qt::AlignRight | Qt::AlignVCenter, row.label);
    return QFontMetrics(font).horizontalAdvance(row.label);
}

void RowDelegate::paintRow(QPainter &painter, const QStyleOptionViewItem &option, const RevisionRow &row) const {
    RowTextPainter texts(painter, theme, rows.filter());
    if (hasColumns(option.font, option.rect.width()))
        return paintColumns(texts, option.font, option.rect, row);
    const int margin = (option.rect.height() - twoLinesHeight(option.font)) / 2;
    const QRect lines = option.rect.adjusted(0, margin, 0, -margin);
    int end = paneEdge;
    if (!row.badge.letter.isNull()) {
        const QRect firstLine(lines.topLeft(), QSize(lines.width(), QFontMetrics(option.font).height()));
        paintBadge(painter, squareAt(paneEdge, firstLine), row.badge, theme);
        end += badgeSide + gap;
    }
    paintTwoLines(texts, option.font, textArea(lines, end + lines.left()), row);
}

/// Message and revision, below them author and date.
void RowDelegate::paintTwoLines(RowTextPainter &texts, const QFont &font, const QRect &rect, const RevisionRow &row) {
    QRect line(rect.topLeft(), QSize(rect.width(), QFontMetrics(font).height()));
    int taken = texts.paintAtRight(line, row.revision, fixedFont(font), RunRole::folder);
    texts.paintText(line.adjusted(0, 0, -taken - gap, 0), row.message, font, RunRole::name);
    line.setTop(line.bottom() + 1);
    line.setBottom(rect.bottom());
    const QFont small = smallFont(font);
    taken = texts.unsearched().paintAtRight(line, row.date, small, RunRole::folder);
    texts.paintText(line.adjusted(0, 0, -taken - gap, 0), row.author, small, RunRole::folder);
}

void RowDelegate::paintColumns(RowTextPainter &texts, const QFont &font, const QRect &rect, const RevisionRow &row) {
    const RevisionColumns columns = revisionColumns(rect, font);
    texts.paintText(columns.revision, row.revision, fixedFont(font), RunRole::name);
    texts.paintText(columns.message, row.message, font, RunRole::name);
    texts.paintText(columns.author, row.author, font, RunRole::folder);
    texts.unsearched().paintText(columns.date, row.date, font, RunRole::folder);
}

void RowDelegate::paintRow(QPainter &painter, const QStyleOptionViewItem &option, const LanguageRow &row) const {
    QRect line = option.rect;
    line.setWidth(qMin(line.width(), languageRowWidth));
    paintSwatch(painter, line.left() + paneEdge, line, row.color, theme);
    QRect text = textArea(line, line.left() + paneEdge + swatchSide + gap);
    RowTextPainter texts(painter, theme, rows.filter());
    texts.paintAtRight(text, row.share, option.font, RunRole::name);
    text.setRight(text.right() - scaledWidth(shareWidth, option.font));
    const int taken = texts.paintAtRight(text, row.size, option.font, RunRole::folder);
    texts.paintText(text.adjusted(0, 0, -taken - gap, 0), row.name, option.font, RunRole::name);
}

} // namespace kestor
