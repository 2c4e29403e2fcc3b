#include "ui/list/section_bar.h"

#include "ui/look/control_size.h"
#include "ui/look/derived_font.h"
#include "ui/look/metrics.h"
#include "ui/look/tone_label.h"

#include <QHBoxLayout>

namespace kestor {

SectionBar::SectionBar(QWidget *parent)
    : Bar(BarLine::below, parent), titleLabel(new ToneLabel(QString(), Tone::plain, this)),
      subjectLabel(new ToneLabel(QString(), Tone::muted, this)) {
    setDerivedFont(*titleLabel, [](const QFont &font) { return boldFont(smallFont(font)); });
    setDerivedFont(*subjectLabel, smallFont);
    subjectLabel->setElideMode(Qt::ElideMiddle);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(paneEdge, smallGap, paneEdge, smallGap + 1);
    layout->setSpacing(gap);
    layout->addWidget(titleLabel);
    layout->addWidget(subjectLabel, 1);
    setRowHeight(*layout, standardHeight);
}

void SectionBar::setTexts(const QString &title, const QString &subject) {
    titleLabel->setText(title);
    subjectLabel->setText(subject);
}

} // namespace kestor
