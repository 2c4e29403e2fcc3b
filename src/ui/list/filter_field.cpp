#include "ui/list/filter_field.h"

#include "ui/look/icons.h"
#include "ui/look/metrics.h"
#include "ui/look/tone_label.h"

#include <QAction>
#include <QKeyEvent>
#include <QLocale>

namespace kestor {

namespace {

/// The room of the clear button at the right end.
constexpr int buttonRoom = 28;

} // namespace

FilterField::FilterField(const QString &placeholder, QWidget *parent)
    : QLineEdit(parent), count(new ToneLabel(QString(), Tone::muted, this)),
      clearing(new QAction(icon(Icon::clear), tr("Clear Filter"), this)) {
    setPlaceholderText(placeholder);
    setAccessibleName(placeholder);
    setToolTip(tr("%1 (%2)").arg(placeholder, QKeySequence(QKeySequence::Find).toString(QKeySequence::NativeText)));
    setMinimumHeight(leastControlHeight);
    addAction(icon(Icon::search), LeadingPosition);
    addAction(clearing, TrailingPosition);
    clearing->setVisible(false);
    count->setAttribute(Qt::WA_TransparentForMouseEvents);
    count->hide();
    connect(clearing, &QAction::triggered, this, &QLineEdit::clear);
    connect(this, &QLineEdit::textChanged, this, [this](const QString &text) {
        clearing->setVisible(!text.isEmpty());
        placeCount();
    });
    applyLook();
}

void FilterField::setCounts(int matching, int all) {
    count->setText(tr("%1 of %2").arg(locale().toString(matching), locale().toString(all)));
    setAccessibleDescription(text().isEmpty() ? QString() : count->text());
    placeCount();
}

void FilterField::placeCount() {
    count->setVisible(!text().isEmpty() && !count->text().isEmpty());
    count->adjustSize();
    count->move(width() - buttonRoom - count->width(), (height() - count->height()) / 2);
    setTextMargins(0, 0, count->isVisibleTo(this) ? count->width() + smallGap : 0, 0);
}

void FilterField::keyPressEvent(QKeyEvent *event) {
    switch (event->key()) {
    case Qt::Key_Down:
        emit firstMatchRequested();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        emit returnPressed();
        break;
    case Qt::Key_Escape:
        if (text().isEmpty())
            emit leaveRequested();
        else
            clear();
        break;
    default:
        QLineEdit::keyPressEvent(event);
    }
}

/// Menus and other windows give it back.
void FilterField::focusOutEvent(QFocusEvent *event) {
    QLineEdit::focusOutEvent(event);
    switch (event->reason()) {
    case Qt::PopupFocusReason:
    case Qt::MenuBarFocusReason:
    case Qt::ActiveWindowFocusReason:
        break;
    default:
        emit left();
    }
}

void FilterField::resizeEvent(QResizeEvent *event) {
    QLineEdit::resizeEvent(event);
    placeCount();
}

void FilterField::changeEvent(QEvent *event) {
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        applyLook();
}

void FilterField::applyLook() {
    count->setFont(smallFont(font()));
    placeCount();
}

} // namespace kestor
