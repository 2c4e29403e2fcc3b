#include "ui/tabs/revision_head.h"

#include "model/trimmed.h"
#include "ui/look/derived_font.h"
#include "ui/look/flat_button.h"
#include "ui/look/held_button.h"
#include "ui/look/icons.h"
#include "ui/look/metrics.h"
#include "ui/look/tone_label.h"

#include <QAbstractTextDocumentLayout>
#include <QAction>
#include <QClipboard>
#include <QEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QMenu>
#include <QTextBlock>
#include <QTextEdit>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

constexpr int mostLines = 6;
/// Laying out more would hold up the window. Copy Message takes all of it.
constexpr qsizetype mostShown = 8000;
constexpr Qt::TextInteractionFlags selectable = Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard;

/// Without the blank lines below the first: it stands out in bold already.
QString withoutBlankLines(QString message) {
    const qsizetype summaryEnd = message.indexOf(u'\n');
    if (summaryEnd < 0)
        return message;
    const auto isText = [](QChar c) {
        return !c.isSpace();
    };
    const auto body = std::find_if(message.cbegin() + summaryEnd, message.cend(), isText);
    const qsizetype lastBreak = QStringView(message.cbegin(), body).lastIndexOf(u'\n');
    return message.remove(summaryEnd, lastBreak - summaryEnd);
}

} // namespace

RevisionHead::RevisionHead(QWidget *parent)
    : Bar(BarLine::below, parent), revision(new ToneLabel(this)), origin(new ToneLabel(QString(), Tone::muted, this)),
      message(new QTextEdit(this)), buttons(new QHBoxLayout),
      more(flatButton(Icon::more, tr("More commands"), this, MenuArrow::none)), menu(new QMenu(more)),
      copyRevision(new QAction(tr("Copy Revision"), this)), copyMessage(new QAction(tr("Copy Message"), this)) {
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, gap + smallGap + 1);
    layout->setSpacing(0);
    layout->addLayout(buttons);
    auto *messageRow = new QHBoxLayout;
    messageRow->setContentsMargins(paneEdge, 0, smallGap, 0);
    messageRow->addWidget(message);
    layout->addLayout(messageRow);
    buttons->setContentsMargins(paneEdge, smallGap, gap, smallGap);
    buttons->setSpacing(gap);
    buttons->addWidget(revision);
    buttons->addWidget(origin, 1);
    buttons->addWidget(more);
    origin->setElideMode(Qt::ElideRight);
    for (ToneLabel *label : {revision, origin})
        label->makeSelectable();
    setDerivedFont(*revision, [](const QFont &font) { return boldFont(fixedFont(font)); });
    message->setReadOnly(true);
    message->setTabChangesFocus(true);
    message->setFrameShape(QFrame::NoFrame);
    message->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    message->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    message->setTextInteractionFlags(selectable);
    message->setAccessibleName(tr("Message"));
    message->viewport()->setAutoFillBackground(false);
    message->document()->setDocumentMargin(0);
    more->setMenu(menu);
    more->setPopupMode(QToolButton::InstantPopup);
    connect(message->document()->documentLayout(), &QAbstractTextDocumentLayout::documentSizeChanged, this,
            &RevisionHead::fitMessage);
    connect(copyRevision, &QAction::triggered, this, [this] { QGuiApplication::clipboard()->setText(text.copied); });
    connect(copyMessage, &QAction::triggered, this, [this] { QGuiApplication::clipboard()->setText(text.message); });
    setMenuActions({});
    applyLook();
}

void RevisionHead::setRevision(const RevisionText &wanted) {
    if (text == wanted)
        return;
    text = wanted;
    revision->setText(text.revision);
    origin->setText(text.date.isEmpty() ? text.author : text.author + u" · "_s + text.date);
    fillMessage();
    fitMessage();
}

/// A summary in bold, and beneath it the rest as it was written.
void RevisionHead::fillMessage() {
    const QString whole = withoutBlankLines(messageSummary(text.message));
    message->setPlainText(whole.size() > mostShown ? whole.first(mostShown) + u'…' : whole);
    QTextCursor cursor(message->document()->firstBlock());
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    QTextCharFormat bold;
    bold.setFontWeight(QFont::Bold);
    cursor.mergeCharFormat(bold);
}

void RevisionHead::fitMessage() {
    const int lineHeight = QFontMetrics(message->font()).lineSpacing();
    const int wanted = static_cast<int>(std::ceil(message->document()->size().height()));
    message->setFixedHeight(qBound(lineHeight, wanted, mostLines * lineHeight));
}

void RevisionHead::addButton(const QString &title, QAction *action) {
    auto *button = new HeldButton(title, this);
    button->setMinimumWidth(button->fontMetrics().horizontalAdvance(title) + 2 * paneEdge);
    button->setToolTip(action->text());
    buttons->insertWidget(buttons->indexOf(more), button);
    connect(button, &QPushButton::clicked, action, &QAction::trigger);
    actionButtons.append(button);
}

void RevisionHead::setMenuActions(const QList<QAction *> &actions) {
    menu->clear();
    menu->addActions(actions);
    menu->addSeparator();
    menu->addActions(copyActions());
}

QList<QAction *> RevisionHead::copyActions() const {
    return {copyRevision, copyMessage};
}

void RevisionHead::setAccess(TickAccess access) {
    for (HeldButton *button : std::as_const(actionButtons))
        button->setHeld(access == TickAccess::held);
}

void RevisionHead::changeEvent(QEvent *event) {
    Bar::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        applyLook();
}

void RevisionHead::applyLook() {
    message->document()->setDefaultFont(font());
    fitMessage();
}

} // namespace kestor
