#include "ui/frame/output_sheet.h"

#include "ui/diff/plain_text_view.h"
#include "ui/frame/icon_label.h"
#include "ui/look/bar.h"
#include "ui/look/flat_button.h"
#include "ui/look/icons.h"
#include "ui/look/metrics.h"

#include <QAccessible>
#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QPainter>
#include <QToolButton>
#include <QVBoxLayout>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

constexpr int edgeHeight = 2;

QString printedText(const CommandOutput &output) {
    const bool needsBreak = !output.stdoutText.isEmpty() && !output.stdoutText.endsWith(u'\n');
    return output.stdoutText + (needsBreak ? u"\n"_s : QString()) + output.stderrText;
}

} // namespace

OutputSheet::OutputSheet(QWidget *parent) : QWidget(parent), view(new PlainTextView(this)) {
    setMinimumHeight(leastHeight);
    view->setAccessibleName(u"Output"_s);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, edgeHeight, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(head());
    layout->addWidget(view, 1);
    connect(view, &PlainTextView::leaveRequested, this, &OutputSheet::closeRequested);
}

QWidget *OutputSheet::head() {
    auto *bar = new Bar(BarLine::below, this);
    bar->setFixedHeight(barHeight);
    title = new ToneLabel(bar);
    title->setFont(boldFont(font()));
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
    connect(copy, &QToolButton::clicked, this, &OutputSheet::copyAll);
    connect(close, &QToolButton::clicked, this, &OutputSheet::closeRequested);
    return bar;
}

void OutputSheet::setOutput(const CommandOutput &shown) {
    output = shown;
    const bool succeeded = output.status == 0;
    const Tone tone = succeeded ? Tone::success : Tone::failure;
    title->setText(output.title);
    sign->setIcon(succeeded ? Icon::check : Icon::warning, tone);
    status->setText(u"Exit status %1"_s.arg(output.status));
    status->setTone(tone);
    commandLine->setText(output.commandLine);
    setAccessibleName(u"%1, %2"_s.arg(output.title, status->text()));
    view->setOutput(output.stdoutText, output.stderrText);
    update();
    QAccessibleEvent announcement(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&announcement);
}

int OutputSheet::wantedHeight() const {
    return edgeHeight + barHeight + view->naturalHeight();
}

void OutputSheet::copyAll() const {
    QGuiApplication::clipboard()->setText(printedText(output));
}

void OutputSheet::paintEvent(QPaintEvent *) {
    const Theme theme = themeFor(palette());
    QPainter(this).fillRect(QRect(0, 0, width(), edgeHeight), output.status == 0 ? theme.outline : theme.delMark);
}

} // namespace kestor
