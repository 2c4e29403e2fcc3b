#include "ui/frame/output_sheet.h"

#include "ui/diff/plain_text_view.h"
#include "ui/frame/icon_label.h"
#include "ui/list/language_texts.h"
#include "ui/list/language_view.h"
#include "ui/list/row_list_view.h"
#include "ui/look/bar.h"
#include "ui/look/control_size.h"
#include "ui/look/derived_font.h"
#include "ui/look/flat_button.h"
#include "ui/look/icons.h"
#include "ui/look/metrics.h"

#include <QAccessible>
#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QPainter>
#include <QStackedLayout>
#include <QToolButton>
#include <QVBoxLayout>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

constexpr int edgeHeight = 2;
/// More than any screen shows: a label shapes its whole text each time.
constexpr int longestCommandLine = 2000;

QString printedText(const CommandOutput &output) {
    if (output.languageDistribution)
        return languagesText(*output.languageDistribution);
    const bool needsBreak = !output.stdoutText.isEmpty() && !output.stdoutText.endsWith(u'\n');
    return output.stdoutText + (needsBreak ? u"\n"_s : QString()) + output.stderrText;
}

} // namespace

OutputSheet::OutputSheet(QWidget *parent)
    : QWidget(parent), view(new PlainTextView), languages(new LanguageView), stack(new QStackedLayout) {
    setMinimumHeight(leastHeight);
    view->setAccessibleName(u"Output"_s);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, edgeHeight, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(head());
    layout->addLayout(stack, 1);
    stack->addWidget(view);
    stack->addWidget(languages);
    connect(view, &PlainTextView::leaveRequested, this, &OutputSheet::closeRequested);
}

QWidget *OutputSheet::head() {
    bar = new Bar(BarLine::below, this);
    title = new ToneLabel(bar);
    setDerivedFont(*title, boldFont);
    title->setElideMode(Qt::ElideRight);
    sign = new IconLabel(Icon::check, Tone::success, 16, bar);
    status = new ToneLabel(bar);
    commandLine = new ToneLabel(QString(), Tone::muted, bar);
    commandLine->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    commandLine->setElideMode(Qt::ElideRight);
    QToolButton *copy = flatButton(Icon::copy, u"Copy the output"_s, bar);
    copy->setText(u"Copy"_s);
    copy->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    QToolButton *close = flatButton(Icon::close, u"Close (Esc)"_s, bar);
    auto *layout = new QHBoxLayout(bar);
    layout->setContentsMargins(paneEdge, 0, gap, 0);
    layout->setSpacing(gap);
    for (QWidget *part : std::initializer_list<QWidget *>{title, sign, status, commandLine})
        layout->addWidget(part);
    layout->setStretchFactor(commandLine, 1);
    layout->addWidget(copy);
    layout->addWidget(close);
    setRowHeight(*layout, barHeight);
    connect(copy, &QToolButton::clicked, this, &OutputSheet::copyAll);
    connect(close, &QToolButton::clicked, this, &OutputSheet::closeRequested);
    return bar;
}

void OutputSheet::setOutput(const CommandOutput &shown) {
    const bool hadFocus = pane().hasFocus();
    output = shown;
    title->setText(output.title);
    commandLine->setText(output.commandLine.left(longestCommandLine));
    if (output.languageDistribution)
        showLanguages();
    else
        showCommand();
    if (hadFocus)
        pane().setFocus(Qt::OtherFocusReason);
    update();
    QAccessibleEvent announcement(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&announcement);
}

void OutputSheet::showCommand() {
    const bool succeeded = output.status == 0;
    const Tone tone = succeeded ? Tone::success : Tone::failure;
    sign->setIcon(succeeded ? Icon::check : Icon::warning, tone);
    status->setText(u"Exit status %1"_s.arg(output.status));
    status->setTone(tone);
    sign->show();
    status->show();
    setAccessibleName(u"%1, %2"_s.arg(output.title, status->text()));
    view->setOutput(output.stdoutText, output.stderrText);
    stack->setCurrentWidget(view);
}

/// Nothing ran that could have succeeded or failed.
void OutputSheet::showLanguages() {
    sign->hide();
    status->hide();
    setAccessibleName(output.title);
    languages->setShares(output.languageDistribution);
    stack->setCurrentWidget(languages);
}

QWidget &OutputSheet::pane() {
    return output.languageDistribution ? static_cast<QWidget &>(languages->list()) : *view;
}

int OutputSheet::wantedHeight() const {
    return edgeHeight + bar->sizeHint().height() +
           (output.languageDistribution ? languages->naturalHeight() : view->naturalHeight());
}

void OutputSheet::copyAll() const {
    QGuiApplication::clipboard()->setText(printedText(output));
}

void OutputSheet::paintEvent(QPaintEvent *) {
    const Theme theme = themeFor(palette());
    QPainter(this).fillRect(QRect(0, 0, width(), edgeHeight), output.status == 0 ? theme.outline : theme.delMark);
}

} // namespace kestor
