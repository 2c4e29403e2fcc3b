#include "ui/tabs/commit_panel.h"

#include "ui/look/accent_button.h"
#include "ui/look/metrics.h"
#include "ui/look/theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <QTextDocument>
#include <QVBoxLayout>

namespace kestor {

namespace {

constexpr int messageHeight = 92;
constexpr int smallestMessage = 60;
constexpr int messageMargin = 7;
constexpr double cornerRadius = 4;

class MessageEditor final : public QPlainTextEdit {
public:
    MessageEditor() {
        setMinimumHeight(smallestMessage);
        setTabChangesFocus(true);
        document()->setDocumentMargin(messageMargin);
        viewport()->setAutoFillBackground(false);
    }

    QSize sizeHint() const override { return {QPlainTextEdit::sizeHint().width(), messageHeight}; }

protected:
    /// The ground is as round as the frame, which a filled viewport would cover.
    void paintEvent(QPaintEvent *event) override {
        QPainter painter(viewport());
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette().base());
        painter.drawRoundedRect(viewport()->rect(), cornerRadius, cornerRadius);
        painter.end();
        QPlainTextEdit::paintEvent(event);
    }
};

} // namespace

CommitPanel::CommitPanel(QWidget *parent)
    : QWidget(parent), editor(new MessageEditor), countLabel(new QLabel), button(new AccentButton(QString())) {
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::AlternateBase);
    setFocusProxy(editor);
    editor->setPlaceholderText(tr("Commit message"));
    editor->setAccessibleName(tr("Commit message"));
    editor->setToolTip(tr("Commit message (Ctrl+L)"));
    button->setToolTip(tr("Commit the ticked changes (Ctrl+Return)"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, gap, 0, paneEdge - AccentButton::frameRoom);
    layout->setSpacing(gap - AccentButton::frameRoom);
    layout->addLayout(messageRow(), 1);
    layout->addLayout(footer());
    connect(editor, &QPlainTextEdit::textChanged, this, [this] { emit messageEdited(message()); });
    connect(button, &QPushButton::clicked, this, [this] {
        if (access == TickAccess::editable)
            emit commitRequested();
    });
}

QLayout *CommitPanel::messageRow() {
    auto *row = new QHBoxLayout;
    row->setContentsMargins(paneEdge, 0, paneEdge, 0);
    row->addWidget(editor);
    return row;
}

/// The button brings its own room around it.
QLayout *CommitPanel::footer() {
    auto *row = new QHBoxLayout;
    row->setContentsMargins(paneEdge, 0, paneEdge - AccentButton::frameRoom, 0);
    row->setSpacing(gap - AccentButton::frameRoom);
    row->addWidget(countLabel, 1);
    row->addWidget(button);
    countLabel->setForegroundRole(QPalette::PlaceholderText);
    countLabel->setWordWrap(true);
    return row;
}

/// As typed: the editor's own plain text has blanks in place of no-break spaces.
QString CommitPanel::message() const {
    QString text = editor->document()->toRawText();
    text.replace(QChar(QChar::ParagraphSeparator), u'\n');
    return text.replace(QChar(QChar::LineSeparator), u'\n');
}

void CommitPanel::setMessage(const QString &text) {
    if (message() == text)
        return;
    const QSignalBlocker silent(editor);
    editor->setPlainText(text);
}

void CommitPanel::setTickAccess(TickAccess wanted) {
    access = wanted;
    editor->setReadOnly(access != TickAccess::editable);
    QPalette colors;
    if (access == TickAccess::held)
        colors.setColor(QPalette::Text, themeFor(palette()).disabled);
    editor->setPalette(colors);
    button->setLook(access == TickAccess::held ? AccentButton::Look::held : AccentButton::Look::ready);
}

void CommitPanel::showCounts(const TickCounts &counts) {
    countLabel->setText(tickedText(counts, locale()));
    countLabel->setToolTip(countLabel->text());
    const QString text = commitText(counts.ticked, locale());
    button->setText(text);
    button->setMinimumWidth(button->fontMetrics().horizontalAdvance(text) + 2 * (paneEdge + AccentButton::frameRoom));
}

} // namespace kestor
