#include "ui/look/tone_label.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace kestor {

QColor toneColor(Tone tone, const Theme &theme) {
    switch (tone) {
    case Tone::plain:
        return theme.text;
    case Tone::muted:
        return theme.muted;
    case Tone::success:
        return theme.addText;
    case Tone::failure:
        return theme.delText;
    }
    return theme.text;
}

ToneLabel::ToneLabel(QWidget *parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
}

ToneLabel::ToneLabel(const QString &text, Tone tone, QWidget *parent) : ToneLabel(parent) {
    setText(text);
    setTone(tone);
}

void ToneLabel::setTone(Tone tone) {
    shownTone = tone;
    update();
}

void ToneLabel::setElideMode(Qt::TextElideMode mode) {
    elideMode = mode;
    setMinimumWidth(0);
    updateGeometry();
}

void ToneLabel::makeSelectable() {
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setFocusPolicy(Qt::ClickFocus);
}

int ToneLabel::wantedWidth() const {
    return fontMetrics().horizontalAdvance(text()) + 1;
}

QSize ToneLabel::sizeHint() const {
    return {wantedWidth(), fontMetrics().height()};
}

QSize ToneLabel::minimumSizeHint() const {
    return {elideMode == Qt::ElideNone ? wantedWidth() : 0, fontMetrics().height()};
}

void ToneLabel::paintEvent(QPaintEvent *event) {
    if (hasFocus())
        return QLabel::paintEvent(event);
    const Theme theme = themeFor(palette());
    QPainter painter(this);
    painter.setPen(isEnabled() ? toneColor(shownTone, theme) : theme.disabled);
    const QString shown = fontMetrics().elidedText(text(), elideMode, width());
    painter.drawText(rect(), static_cast<int>(alignment()) | Qt::TextSingleLine, shown);
}

bool ToneLabel::event(QEvent *event) {
    if (event->type() != QEvent::ToolTip || wantedWidth() <= width())
        return QLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), text(), this);
    return true;
}

} // namespace kestor
