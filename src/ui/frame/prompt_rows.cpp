#include "ui/frame/prompt_rows.h"

#include "ui/look/accent_button.h"
#include "ui/look/control_size.h"
#include "ui/look/derived_font.h"
#include "ui/look/metrics.h"
#include "ui/look/tone_label.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QVBoxLayout>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

constexpr int promptEdge = 20;
constexpr int rowsWidth = 520;
constexpr int rowSpacing = 8;
constexpr int labelWidth = 126;
constexpr int labelGap = 10;
constexpr int leastControlWidth = 382;

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
    auto *rows = new QGridLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setVerticalSpacing(rowSpacing);
    rows->setHorizontalSpacing(labelGap);
    rows->setColumnMinimumWidth(0, labelWidth);
    rows->setColumnStretch(1, 1);
    setMinimumWidth(rowsWidth);
}

void PromptRows::add(const QString &text, QWidget *control) {
    auto *label = new ToneLabel(text, Tone::plain, this);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setBuddy(control);
    control->setAccessibleName(text);
    control->setMinimumSize(leastControlWidth, leastControlHeight);
    if (auto *field = qobject_cast<QLineEdit *>(control))
        giveRoom(*field);
    auto *rows = static_cast<QGridLayout *>(layout());
    const int row = rows->rowCount();
    rows->addWidget(label, row, 0);
    rows->addWidget(control, row, 1);
}

void layOutPrompt(QDialog *dialog, const QString &title, PromptRows *rows, const QString &accepting) {
    dialog->setWindowTitle(title);
    dialog->setAccessibleName(title);
    auto *heading = new ToneLabel(title, Tone::plain, dialog);
    heading->setElideMode(Qt::ElideRight);
    setDerivedFont(*heading, headingFont);
    auto *layout = new QVBoxLayout(dialog);
    layout->setContentsMargins(promptEdge, promptEdge, promptEdge, promptEdge);
    layout->setSpacing(promptEdge);
    layout->addWidget(heading);
    layout->addWidget(rows);
    layout->addWidget(buttons(dialog, accepting));
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

} // namespace kestor
