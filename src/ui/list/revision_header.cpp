#include "ui/list/revision_header.h"

#include "ui/list/revision_columns.h"
#include "ui/list/row_list_view.h"
#include "ui/look/metrics.h"
#include "ui/look/theme.h"

#include <QEvent>
#include <QPainter>

namespace kestor {

RevisionHeader::RevisionHeader(RowListView &shownList, QWidget *parent) : Bar(BarLine::below, parent), list(shownList) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    list.viewport()->installEventFilter(this);
}

void RevisionHeader::setRevisionTitle(const QString &title) {
    revisionTitle = title;
    update();
}

QSize RevisionHeader::sizeHint() const {
    return {0, controlHeight(font())};
}

/// A scroll bar narrows the columns below too.
bool RevisionHeader::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::Resize)
        followList();
    return Bar::eventFilter(watched, event);
}

void RevisionHeader::followList() {
    setVisible(hasRoomForColumns(list.viewport()->width(), font()));
    update();
}

void RevisionHeader::paintEvent(QPaintEvent *event) {
    Bar::paintEvent(event);
    QPainter painter(this);
    painter.setFont(smallFont(font()));
    painter.setPen(themeFor(palette()).muted);
    const RevisionColumns columns = revisionColumns(QRect(0, 0, list.viewport()->width(), height() - 1), font());
    const auto draw = [&painter](const QRect &column, const QString &title) {
        painter.drawText(column, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, title);
    };
    draw(columns.revision, revisionTitle);
    draw(columns.message, tr("Message"));
    draw(columns.author, tr("Author"));
    draw(columns.date, tr("Date"));
}

} // namespace kestor
