#include "ui/look/placeholder.h"

#include "ui/look/focus_frame.h"
#include "ui/look/held_button.h"
#include "ui/look/metrics.h"
#include "ui/look/theme.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QVBoxLayout>

namespace kestor {

namespace {

QLabel *centeredLabel(QWidget *parent) {
    auto *label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    return label;
}

void setShownText(QLabel &label, const QString &text) {
    label.setText(text);
    label.setVisible(!text.isEmpty());
}

} // namespace

Placeholder::Placeholder(QWidget *parent)
    : QWidget(parent), heading(centeredLabel(this)), explanation(centeredLabel(this)), button(new HeldButton(this)) {
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(paneEdge, paneEdge, paneEdge, paneEdge);
    layout->setSpacing(gap);
    layout->addStretch();
    layout->addWidget(heading);
    layout->addWidget(explanation);
    layout->addWidget(button, 0, Qt::AlignCenter);
    layout->addStretch();
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    connect(button, &QPushButton::clicked, this, &Placeholder::buttonClicked);
    connect(qApp, &QApplication::focusChanged, this, qOverload<>(&QWidget::update));
    applyLook();
    setText({});
}

Placeholder::Placeholder(const PlaceholderText &text, QWidget *parent) : Placeholder(parent) {
    setText(text);
}

void Placeholder::setText(const PlaceholderText &text) {
    setShownText(*heading, text.heading);
    setShownText(*explanation, text.explanation);
    button->setText(text.button);
    button->setIcon(text.icon);
    button->setVisible(!text.button.isEmpty());
}

void Placeholder::setButtonHeld(bool held) {
    button->setHeld(held);
}

void Placeholder::changeEvent(QEvent *event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        applyLook();
}

void Placeholder::paintEvent(QPaintEvent *) {
    if (hasFocus())
        paintFocusFrame(*this);
}

void Placeholder::applyLook() {
    heading->setFont(headingFont(font()));
    QPalette mutedPalette = palette();
    mutedPalette.setColor(explanation->foregroundRole(), themeFor(palette()).muted);
    explanation->setPalette(mutedPalette);
}

} // namespace kestor
