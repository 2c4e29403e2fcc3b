#include "ui/frame/message_dialog.h"

#include "ui/frame/icon_label.h"
#include "ui/look/accent_button.h"
#include "ui/look/derived_font.h"
#include "ui/look/icons.h"
#include "ui/look/metrics.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextEdit>
#include <QtMath>

#include <memory>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

constexpr int dialogWidth = 600;
constexpr int dialogEdge = 20;
constexpr int signSide = 32;
constexpr int messageWidth = dialogWidth - 3 * dialogEdge - signSide;
constexpr int highestMessage = 240;
constexpr int leastLine = 20;
/// The output sheet holds the whole text of a tool; a dialog of megabytes would only be slow.
constexpr int longestMessage = 4000;

QString shownPart(const QString &message) {
    return message.size() <= longestMessage ? message : message.left(longestMessage) + u"\n…"_s;
}

/// Lines farther apart than those of a field, for a message is read.
void spreadLines(QTextDocument &document) {
    const int line = qMax(leastLine, QFontMetrics(document.defaultFont()).lineSpacing() + smallGap);
    QTextBlockFormat format;
    format.setLineHeight(line, QTextBlockFormat::MinimumHeight);
    QTextCursor all(&document);
    all.select(QTextCursor::Document);
    all.mergeBlockFormat(format);
}

/// The height of a document at the width of the message. The one of a view is measured on a copy, since the view lays
/// out its own anew in the width that it has before it is shown.
int heightOf(const QTextDocument &document) {
    const std::unique_ptr<QTextDocument> copy(document.clone());
    copy->setDefaultFont(document.defaultFont());
    copy->setDefaultTextOption(document.defaultTextOption());
    copy->setDocumentMargin(document.documentMargin());
    copy->setTextWidth(messageWidth);
    return qCeil(copy->size().height());
}

} // namespace

MessageDialog::MessageDialog(Purpose purpose, const QString &title, const QString &shownMessage, QWidget *parent)
    : QDialog(parent), message(shownMessage) {
    setWindowTitle(title);
    setAccessibleName(title);
    setAccessibleDescription(shownPart(message));
    auto *heading = new QLabel(title, this);
    heading->setTextFormat(Qt::PlainText);
    heading->setWordWrap(true);
    setDerivedFont(*heading, headingFont);
    auto *layout = new QGridLayout(this);
    layout->setContentsMargins(dialogEdge, dialogEdge, dialogEdge, dialogEdge);
    layout->setHorizontalSpacing(dialogEdge);
    layout->setVerticalSpacing(gap);
    auto *sign = new IconLabel(Icon::warning, Tone::failure, signSide, this);
    layout->addWidget(sign, 0, 0, 2, 1, Qt::AlignTop);
    layout->addWidget(heading, 0, 1);
    layout->addWidget(messageView(), 1, 1);
    layout->setRowMinimumHeight(2, smallGap);
    layout->addWidget(buttons(purpose), 3, 0, 1, 2);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

QTextEdit *MessageDialog::messageView() {
    auto *view = new QTextEdit(this);
    view->setReadOnly(true);
    view->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    view->setFrameShape(QFrame::NoFrame);
    view->viewport()->setAutoFillBackground(false);
    view->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view->setTabChangesFocus(true);
    view->setAccessibleName(u"Message"_s);
    view->document()->setDocumentMargin(0);
    view->setPlainText(shownPart(message));
    spreadLines(*view->document());
    view->setFixedSize(messageWidth, qMin(heightOf(*view->document()), highestMessage));
    return view;
}

QWidget *MessageDialog::buttons(Purpose purpose) {
    auto *box = new QDialogButtonBox(this);
    const bool alert = purpose == Purpose::alert;
    auto *accepting = new AccentButton(alert ? u"OK"_s : u"Continue"_s, this);
    box->addButton(accepting, QDialogButtonBox::AcceptRole);
    accepting->setFocus();
    connect(box, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(box, &QDialogButtonBox::rejected, this, &QDialog::reject);
    if (!alert) {
        box->addButton(u"Cancel"_s, QDialogButtonBox::RejectRole);
        return box;
    }
    auto *copy = new QPushButton(u"Copy"_s, this);
    box->addButton(copy, QDialogButtonBox::ActionRole);
    connect(copy, &QPushButton::clicked, this, [this] { QGuiApplication::clipboard()->setText(message); });
    return box;
}

} // namespace kestor
