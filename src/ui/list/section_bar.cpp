#include "ui/list/section_bar.h"

#include "ui/look/metrics.h"
#include "ui/look/tone_label.h"

#include <QHBoxLayout>

namespace kestor {

SectionBar::SectionBar(QWidget *parent)
    : Bar(BarLine::below, parent), titleLabel(new ToneLabel(QString(), Tone::plain, this)),
      subjectLabel(new ToneLabel(QString(), Tone::muted, this)) {
    setFixedHeight(standardHeight);
    titleLabel->setFont(boldFont(smallFont(font())));
    subjectLabel->setFont(smallFont(font()));
    subjectLabel->setElideMode(Qt::ElideMiddle);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(paneEdge, 0, paneEdge, 1);
    layout->setSpacing(gap);
    layout->addWidget(titleLabel);
    layout->addWidget(subjectLabel, 1);
}

void SectionBar::setTexts(const QString &title, const QString &subject) {
    titleLabel->setText(title);
    subjectLabel->setText(subject);
}

} // namespace kestor
