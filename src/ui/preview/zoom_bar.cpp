#include "ui/preview/zoom_bar.h"

#include "ui/look/control_size.h"
#include "ui/look/flat_button.h"
#include "ui/look/icons.h"
#include "ui/look/metrics.h"
#include "ui/look/segmented_switch.h"
#include "ui/look/tone_label.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLocale>
#include <QToolButton>

#include <algorithm>
#include <array>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array factors{0.01, 0.02, 0.05, 0.1, 0.25, 0.5, 0.75, 1.0, 1.5, 2.0, 3.0, 4.0, 6.0, 8.0, 12.0, 16.0};

} // namespace

double steppedFactor(double factor, int steps) {
    if (steps > 0) {
        const auto *const next = std::ranges::upper_bound(factors, factor * 1.001);
        return next == factors.end() ? factors.back() : *next;
    }
    const auto *const above = std::ranges::lower_bound(factors, factor * 0.999);
    return above == factors.begin() ? factors.front() : *(above - 1);
}

ZoomBar::ZoomBar(QWidget *parent)
    : QWidget(parent), sentence(new ToneLabel(QString(), Tone::muted, this)),
      modes(new SegmentedSwitch({u"Fit"_s, u"100 %"_s}, u"Image Size"_s, this)),
      smaller(flatButton(Icon::minus, u"Smaller"_s, this)), percent(new ToneLabel(QString(), Tone::muted, this)),
      larger(flatButton(Icon::plus, u"Larger"_s, this)) {
    auto *const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(sentence, 1);
    layout->addSpacing(gap);
    layout->addWidget(modes);
    layout->addSpacing(gap);
    layout->addWidget(smaller);
    layout->addWidget(percent);
    layout->addWidget(larger);
    setRowHeight(*layout, leastControlHeight);
    sentence->setElideMode(Qt::ElideRight);
    percent->setAlignment(Qt::AlignCenter);
    percent->setAccessibleName(u"Scale"_s);
    connect(modes, &SegmentedSwitch::chosen, this, [this](int index) {
        if (index == 0) {
            emit fitRequested();
        } else {
            emit factorRequested(1);
        }
    });
    connect(smaller, &QToolButton::clicked, this, [this] { emit factorRequested(steppedFactor(shownFactor, -1)); });
    connect(larger, &QToolButton::clicked, this, [this] { emit factorRequested(steppedFactor(shownFactor, 1)); });
    fitPercent();
}

void ZoomBar::setSentence(const QString &text) {
    sentence->setText(text);
}

void ZoomBar::showZoom(const Zoom &zoom) {
    shownFactor = zoom.factor;
    modes->setCurrent(zoom.fits ? 0 : zoom.factor == 1 ? 1 : -1);
    const double shown = zoom.factor * 100;
    percent->setText(u"%1 %"_s.arg(QLocale().toString(shown, 'f', shown < 9.95 ? 1 : 0)));
    smaller->setEnabled(zoom.factor > factors.front());
    larger->setEnabled(zoom.factor < factors.back());
}

void ZoomBar::fitPercent() {
    percent->setFixedWidth(percent->fontMetrics().horizontalAdvance(u" 1600 % "_s));
}

void ZoomBar::changeEvent(QEvent *event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        fitPercent();
}

} // namespace kestor
