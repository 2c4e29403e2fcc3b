#include "ui/diff/diff_bar.h"

#include "ui/look/control_size.h"
#include "ui/look/derived_font.h"
#include "ui/look/flat_button.h"
#include "ui/look/icons.h"
#include "ui/look/metrics.h"
#include "ui/look/segmented_switch.h"
#include "ui/look/tone_label.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QHelpEvent>
#include <QMenu>
#include <QPainter>
#include <QToolButton>
#include <QToolTip>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

QToolButton *barButton(Icon picture, const QString &name, const QString &toolTip, QWidget *parent) {
    QToolButton *const button = flatButton(picture, toolTip, parent);
    button->setAccessibleName(name);
    return button;
}

} // namespace

DiffBar::DiffBar(QMenu *menu, QWidget *parent)
    : QWidget(parent), theme(themeFor(palette())),
      forms(new SegmentedSwitch({u"Preview"_s, u"Text"_s}, u"Show as"_s, this)),
      hunks(new ToneLabel(QString(), Tone::muted, this)),
      previous(barButton(Icon::arrowUp, u"Previous Hunk"_s,
                         u"Previous Hunk (Shift+F7 or Alt+Up), previous file (Shift+F8)"_s, this)),
      next(barButton(Icon::arrowDown, u"Next Hunk"_s, u"Next Hunk (F7 or Alt+Down), next file (F8)"_s, this)),
      more(barButton(Icon::more, u"More commands for the diff"_s, u"More commands"_s, this)) {
    auto *const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, gap, 1);
    layout->setSpacing(0);
    layout->addStretch();
    layout->addWidget(forms);
    layout->addSpacing(gap);
    layout->addWidget(hunks);
    layout->addSpacing(gap);
    layout->addWidget(previous);
    layout->addWidget(next);
    layout->addSpacing(gap);
    layout->addWidget(more);
    setRowHeight(*layout, barHeight);
    setDerivedFont(*hunks, smallFont);
    forms->setToolTip(u"Preview or Text (V)"_s);
    connect(forms, &SegmentedSwitch::chosen, this,
            [this](int index) { emit formChosen(static_cast<DetailForm>(index)); });
    connect(previous, &QToolButton::clicked, this, &DiffBar::previousHunkRequested);
    connect(next, &QToolButton::clicked, this, &DiffBar::nextHunkRequested);
    connect(more, &QToolButton::clicked, this,
            [this, menu] { menu->popup(more->mapToGlobal(QPoint(0, more->height()))); });
    applyLook();
    clear();
}

void DiffBar::setTitle(const DiffTitle &newTitle) {
    title = newTitle;
    more->show();
    update();
}

void DiffBar::setHunks(const QString &text) {
    hunks->setText(text);
    for (QWidget *const part :
         {static_cast<QWidget *>(hunks), static_cast<QWidget *>(previous), static_cast<QWidget *>(next)})
        part->setVisible(!text.isEmpty());
    update();
}

void DiffBar::setForm(std::optional<DetailForm> form) {
    forms->setVisible(form.has_value());
    if (form)
        forms->setCurrent(static_cast<int>(*form));
    update();
}

void DiffBar::clear() {
    setTitle({});
    setForm({});
    setHunks({});
    more->hide();
}

void DiffBar::applyLook() {
    theme = themeFor(palette());
    update();
}

void DiffBar::changeEvent(QEvent *event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        applyLook();
}

/// From the left edge to the first part that is shown at the right.
QRect DiffBar::titleArea() const {
    int end = width() - gap;
    for (const QWidget *const part :
         {static_cast<QWidget *>(more), static_cast<QWidget *>(hunks), static_cast<QWidget *>(forms)}) {
        if (!part->isHidden())
            end = part->x() - gap;
    }
    return {paneEdge, 0, end - paneEdge, height() - 1};
}

bool DiffBar::event(QEvent *event) {
    if (event->type() == QEvent::ToolTip && titleArea().contains(static_cast<QHelpEvent *>(event)->pos())) {
        QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), title.path, this, titleArea());
        return true;
    }
    return QWidget::event(event);
}

void DiffBar::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.fillRect(rect(), theme.alternate);
    painter.fillRect(QRect(0, height() - 1, width(), 1), theme.separator);
    paintTitle(painter, titleArea(), title, font(), theme);
}

} // namespace kestor
