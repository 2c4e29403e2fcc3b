#include "ui/list/language_view.h"

#include "ui/list/language_bar.h"
#include "ui/list/row_list_view.h"
#include "ui/look/metrics.h"
#include "ui/look/placeholder.h"

#include <QGridLayout>
#include <QHBoxLayout>

namespace kestor {

LanguageView::LanguageView(QWidget *parent)
    : QWidget(parent), bar(new LanguageBar), barRoom(framedBar()), rowList(new RowListView(rows)),
      placeholder(new Placeholder) {
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    rowList->setAccessibleName(tr("Languages"));
    // The placeholder lies upon bar and list, which has the focus of both.
    placeholder->setFocusPolicy(Qt::ClickFocus);
    placeholder->setFocusProxy(rowList);
    auto *layout = new QGridLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(barRoom, 0, 0);
    layout->addWidget(rowList, 1, 0);
    layout->setRowStretch(1, 1);
    layout->addWidget(placeholder, 0, 0, 2, 1);
    setShares(std::nullopt);
}

QWidget *LanguageView::framedBar() {
    auto *room = new QWidget;
    auto *layout = new QHBoxLayout(room);
    layout->setContentsMargins(paneEdge, paneEdge, paneEdge, gap);
    layout->setSpacing(0);
    bar->setMaximumWidth(languageRowWidth - 2 * paneEdge);
    layout->addWidget(bar, 1);
    layout->addStretch();
    return room;
}

void LanguageView::setShares(const std::optional<QList<LanguageDistributionEntry>> &shares) {
    const QList<LanguageDistributionEntry> known = shares.value_or(QList<LanguageDistributionEntry>());
    rows.publish(known);
    bar->setShares(known);
    placeholder->setText({{}, shares ? tr("No Recognized Source Files") : tr("Counting source files"), {}});
    placeholder->setVisible(known.isEmpty());
}

int LanguageView::naturalHeight() const {
    return barRoom->sizeHint().height() + rows.rowCount() * rowHeight(rowList->font()) + gap;
}

} // namespace kestor
