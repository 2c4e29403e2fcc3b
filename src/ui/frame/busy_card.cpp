#include "ui/frame/busy_card.h"

#include "ui/look/derived_font.h"
#include "ui/look/metrics.h"
#include "ui/look/tone_label.h"

#include <QAccessible>
#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QStyle>

#include <chrono>
#include <cmath>

namespace kestor {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int cardHeight = 44;
constexpr int distanceFromBottom = 24;
constexpr int spinnerSide = 20;
constexpr int lineHeight = 2;
constexpr auto frameTime = 33ms;

QRectF insetRect(const QRect &rect) {
    return QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5);
}

} // namespace

bool animationsWanted(const QWidget &widget) {
    return widget.style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, &widget) != 0;
}

Spinner::Spinner(QWidget *parent) : QWidget(parent) {
    setFixedSize(spinnerSide, spinnerSide);
    timer.setInterval(frameTime);
    connect(&timer, &QTimer::timeout, this, [this] {
        degrees = (degrees + 12) % 360;
        update();
    });
}

void Spinner::showEvent(QShowEvent *event) {
    QWidget::showEvent(event);
    if (animationsWanted(*this))
        timer.start();
}

void Spinner::hideEvent(QHideEvent *event) {
    QWidget::hideEvent(event);
    timer.stop();
}

void Spinner::paintEvent(QPaintEvent *) {
    const Theme theme = themeFor(palette());
    const QRectF ring = QRectF(rect()).adjusted(2, 2, -2, -2);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(theme.separator, 2.5));
    painter.drawEllipse(ring);
    painter.setPen(QPen(theme.accent, 2.5, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(ring, (90 - degrees) * 16, -100 * 16);
}

BusyCard::BusyCard(QWidget *area)
    : QWidget(area), message(new ToneLabel(this)), seconds(new ToneLabel(QString(), Tone::muted, this)) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setDerivedFont(*message, boldFont);
    message->setElideMode(Qt::ElideRight);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(16, 0, 20, 0);
    layout->setSpacing(12);
    layout->addWidget(new Spinner(this));
    layout->addWidget(message);
    layout->addWidget(seconds);
    area->installEventFilter(this);
    hide();
}

void BusyCard::setMessage(const QString &text) {
    message->setText(text);
    seconds->hide();
    setAccessibleName(text);
    place();
    QAccessibleEvent announcement(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&announcement);
}

void BusyCard::setSeconds(int count) {
    seconds->setText(u"%1 s"_s.arg(count));
    seconds->show();
    place();
}

bool BusyCard::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::Resize)
        place();
    return QWidget::eventFilter(watched, event);
}

void BusyCard::place() {
    const QRect area = parentWidget()->rect();
    layout()->activate();
    const int width = qMin(sizeHint().width(), area.width() - 2 * paneEdge);
    setGeometry((area.width() - width) / 2, area.height() - distanceFromBottom - cardHeight, width, cardHeight);
    raise();
}

void BusyCard::paintEvent(QPaintEvent *) {
    const Theme theme = themeFor(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(theme.outline);
    painter.setBrush(theme.window);
    painter.drawRoundedRect(insetRect(rect()), 8, 8);
}

BusyLine::BusyLine(QWidget *strip) : QWidget(strip) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    timer.setInterval(frameTime);
    connect(&timer, &QTimer::timeout, this, [this] {
        position = std::fmod(position + 0.02 + 0.4, 1.8) - 0.4; // from well left of the edge to well right of it
        update();
    });
    strip->installEventFilter(this);
    place();
    hide();
}

bool BusyLine::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::Resize)
        place();
    return QWidget::eventFilter(watched, event);
}

void BusyLine::place() {
    const QRect strip = parentWidget()->rect();
    setGeometry(0, strip.height() - lineHeight, strip.width(), lineHeight);
}

void BusyLine::showEvent(QShowEvent *event) {
    QWidget::showEvent(event);
    if (animationsWanted(*this))
        timer.start();
}

void BusyLine::hideEvent(QHideEvent *event) {
    QWidget::hideEvent(event);
    timer.stop();
}

void BusyLine::paintEvent(QPaintEvent *) {
    const Theme theme = themeFor(palette());
    QColor faded = theme.accent;
    faded.setAlpha(0);
    QLinearGradient light((position - 0.25) * width(), 0, (position + 0.25) * width(), 0);
    light.setStops({{0, faded}, {0.5, theme.accent}, {1, faded}});
    QPainter(this).fillRect(rect(), light);
}

} // namespace kestor
