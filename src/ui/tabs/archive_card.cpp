#include "ui/tabs/archive_card.h"

#include "ui/look/accent_button.h"
#include "ui/look/derived_font.h"
#include "ui/look/icons.h"
#include "ui/look/metrics.h"
#include "ui/look/tone_label.h"

#include <QAction>
#include <QGridLayout>
#include <QPainter>

namespace kestor {

namespace {

constexpr int tileSide = 40;
constexpr int tileRadius = 5;
constexpr int iconSide = 20;
constexpr QRect tile(paneEdge, paneEdge, tileSide, tileSide);

ToneLabel *selectableLabel(Tone tone) {
    auto *label = new ToneLabel(QString(), tone);
    label->makeSelectable();
    label->setElideMode(Qt::ElideMiddle);
    return label;
}

} // namespace

ArchiveCard::ArchiveCard(QAction *createZip, QWidget *parent)
    : QWidget(parent), name(selectableLabel(Tone::plain)), folder(selectableLabel(Tone::muted)),
      button(new AccentButton(createZip->text())) {
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    constexpr int room = AccentButton::frameRoom;
    auto *layout = new QGridLayout(this);
    layout->setContentsMargins(paneEdge - room, paneEdge, paneEdge, paneEdge + 1 - room);
    layout->setHorizontalSpacing(0);
    layout->setVerticalSpacing(0);
    layout->setColumnMinimumWidth(0, room + tileSide + paneEdge);
    layout->setColumnStretch(1, 1);
    layout->setRowMinimumHeight(0, tileSide / 2);
    layout->setRowMinimumHeight(1, tileSide / 2);
    layout->setRowMinimumHeight(2, paneEdge - room);
    layout->addWidget(name, 0, 1);
    layout->addWidget(folder, 1, 1);
    layout->addWidget(button, 3, 0, 1, 2, Qt::AlignLeft);
    button->setMinimumWidth(button->fontMetrics().horizontalAdvance(button->text()) + 2 * (paneEdge + room));
    connect(button, &QPushButton::clicked, createZip, &QAction::trigger);
    setDerivedFont(*name, fixedFont);
    setDerivedFont(*folder, smallFont);
}

void ArchiveCard::setRootName(const QString &rootName) {
    name->setText(rootName + QStringLiteral(".zip"));
    folder->setText(tr("One folder inside: %1").arg(rootName));
}

void ArchiveCard::setAccess(TickAccess access) {
    button->setLook(access == TickAccess::held ? AccentButton::Look::held : AccentButton::Look::ready);
}

void ArchiveCard::paintEvent(QPaintEvent *) {
    const Theme theme = themeFor(palette());
    QPainter painter(this);
    painter.fillRect(0, height() - 1, width(), 1, theme.separator);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(theme.separator);
    painter.setBrush(theme.alternate);
    painter.drawRoundedRect(QRectF(tile).adjusted(0.5, 0.5, -0.5, -0.5), tileRadius, tileRadius);
    QRect picture(0, 0, iconSide, iconSide);
    picture.moveCenter(tile.center());
    icon(Icon::archive).paint(&painter, picture);
}

} // namespace kestor
