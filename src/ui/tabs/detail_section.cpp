#include "ui/tabs/detail_section.h"

#include "ui/look/derived_font.h"
#include "ui/look/metrics.h"
#include "ui/look/theme.h"
#include "ui/look/tone_label.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

namespace kestor {

DetailSection::DetailSection(const QString &title, QWidget *parent)
    : QWidget(parent), parts(new QVBoxLayout(this)), heading(new QHBoxLayout) {
    parts->setContentsMargins(paneEdge, gap, paneEdge, paneEdge + smallGap + 1);
    parts->setSpacing(smallGap);
    heading->setSpacing(gap);
    auto *label = new ToneLabel(title, Tone::plain, this);
    setDerivedFont(*label, boldFont);
    label->setMinimumHeight(leastControlHeight);
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    label->setElideMode(Qt::ElideRight);
    heading->addWidget(label, 1);
    parts->addLayout(heading);
}

void DetailSection::addToHeading(QWidget *part) {
    heading->addWidget(part);
}

void DetailSection::paintEvent(QPaintEvent *) {
    QPainter(this).fillRect(0, height() - 1, width(), 1, themeFor(palette()).separator);
}

} // namespace kestor
