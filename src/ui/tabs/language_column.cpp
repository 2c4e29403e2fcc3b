#include "ui/tabs/language_column.h"

#include "model/size_text.h"
#include "ui/list/language_texts.h"
#include "ui/list/language_view.h"
#include "ui/look/bar.h"
#include "ui/look/control_size.h"
#include "ui/look/derived_font.h"
#include "ui/look/flat_button.h"
#include "ui/look/icons.h"
#include "ui/look/metrics.h"
#include "ui/look/tone_label.h"

#include <QAction>
#include <QHBoxLayout>
#include <QMenu>
#include <QToolButton>
#include <QVBoxLayout>

namespace kestor {

LanguageColumn::LanguageColumn(AppState &shownState, QWidget *parent)
    : QWidget(parent), state(shownState), showInSheet(new QAction(tr("Language Distribution"), this)),
      languages(new LanguageView) {
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(heading());
    layout->addWidget(languages, 1);
    connect(showInSheet, &QAction::triggered, this, [this] { state.languageShares.showLanguageDistribution(); });
    observers.watch(state.languageDistribution, [this] { showShares(); });
}

RowListView &LanguageColumn::list() {
    return languages->list();
}

QWidget *LanguageColumn::heading() {
    auto *bar = new Bar(BarLine::below);
    auto *title = new ToneLabel(tr("Languages"), Tone::plain);
    setDerivedFont(*title, boldFont);
    total = new ToneLabel(QString(), Tone::muted);
    setDerivedFont(*total, smallFont);
    QToolButton *more = flatButton(Icon::more, tr("More commands for the languages"), bar, MenuArrow::none);
    auto *menu = new QMenu(more);
    menu->addAction(showInSheet);
    more->setMenu(menu);
    more->setPopupMode(QToolButton::InstantPopup);
    auto *layout = new QHBoxLayout(bar);
    layout->setContentsMargins(paneEdge, 0, smallGap, 1);
    layout->setSpacing(smallGap);
    layout->addWidget(title);
    layout->addStretch();
    layout->addWidget(total);
    layout->addWidget(more);
    setRowHeight(*layout, barHeight);
    return bar;
}

void LanguageColumn::showShares() {
    const std::optional<QList<LanguageDistributionEntry>> shares = state.languageDistribution;
    languages->setShares(shares);
    showInSheet->setEnabled(shares.has_value());
    total->setText(shares && !shares->isEmpty() ? sizeText(totalBytes(*shares)) : QString());
}

} // namespace kestor
