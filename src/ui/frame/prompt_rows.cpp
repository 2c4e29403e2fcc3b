#include "ui/frame/prompt_rows.h"

#include "ui/look/accent_button.h"
#include "ui/look/metrics.h"
#include "ui/look/tone_label.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QVBoxLayout>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

constexpr int promptEdge = 20;
constexpr int rowsWidth = 520;
constexpr int promptRowHeight = 28;
constexpr int rowSpacing = 8;
constexpr int labelWidth = 126;
constexpr int labelGap = 10;
constexpr int controlWidth = 382;

QDialogButtonBox *buttons(QDialog *dialog, const QString &accepting) {
    auto *box = new QDialogButtonBox(dialog);
    box->addButton(new AccentButton(accepting, dialog), QDialogButtonBox::AcceptRole);
    box->addButton(u"Cancel"_s, QDialogButtonBox::RejectRole);
    QObject::connect(box, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
    QObject::connect(box, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    return box;
}

} // namespace

PromptRows::PromptRows(QWidget *parent) : QWidget(parent) {
    auto *rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(rowSpacing);
    setFixedSize(rowsWidth, 0);
}

void PromptRows::add(const QString &text, QWidget *control) {
    auto *label = new ToneLabel(text, Tone::plain, this);
    label->setElideMode(Qt::ElideRight);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setFixedWidth(labelWidth);
    label->setBuddy(control);
    control->setAccessibleName(text);
    control->setFixedSize(controlWidth, promptRowHeight);
    if (auto *field = qobject_cast<QLineEdit *>(control))
        field->setTextMargins(smallGap, 0, smallGap, 0);
    auto *row = new QHBoxLayout;
    row->setSpacing(labelGap);
    row->addWidget(label);
    row->addWidget(control);
    row->addStretch();
    static_cast<QVBoxLayout *>(layout())->addLayout(row);
    ++count;
    setFixedSize(rowsWidth, count * promptRowHeight + (count - 1) * rowSpacing);
}

void layOutPrompt(QDialog *dialog, const QString &title, PromptRows *rows, const QString &accepting) {
    dialog->setWindowTitle(title);
    dialog->setAccessibleName(title);
    auto *heading = new ToneLabel(title, Tone::plain, dialog);
    heading->setElideMode(Qt::ElideRight);
    heading->setFont(headingFont(dialog->font()));
    auto *layout = new QVBoxLayout(dialog);
    layout->setContentsMargins(promptEdge, promptEdge, promptEdge, promptEdge);
    layout->setSpacing(promptEdge);
    layout->addWidget(heading);
    layout->addWidget(rows);
    layout->addWidget(buttons(dialog, accepting));
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

} // namespace kestor
