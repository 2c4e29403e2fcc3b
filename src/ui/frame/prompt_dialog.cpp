#include "ui/frame/prompt_dialog.h"

#include "ui/look/accent_button.h"
#include "ui/look/metrics.h"
#include "ui/look/tone_label.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QVBoxLayout>

#include <algorithm>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

constexpr int edge = 20;
constexpr int rowsWidth = 520;
constexpr int promptRowHeight = 28;
constexpr int rowSpacing = 8;
constexpr int labelWidth = 126;
constexpr int labelGap = 10;
constexpr int editWidth = 382;

QHBoxLayout *promptRow(const QString &text, QLineEdit *edit) {
    auto *label = new ToneLabel(text, Tone::plain, edit->parentWidget());
    label->setElideMode(Qt::ElideRight);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setFixedWidth(labelWidth);
    label->setBuddy(edit);
    edit->setAccessibleName(text);
    edit->setFixedSize(editWidth, promptRowHeight);
    auto *row = new QHBoxLayout;
    row->setSpacing(labelGap);
    row->addWidget(label);
    row->addWidget(edit);
    row->addStretch();
    return row;
}

} // namespace

PromptDialog::PromptDialog(const QString &title, const QList<PromptField> &fields, QWidget *parent) : QDialog(parent) {
    setWindowTitle(title);
    setAccessibleName(title);
    auto *heading = new ToneLabel(title, Tone::plain, this);
    heading->setElideMode(Qt::ElideRight);
    heading->setFont(headingFont(font()));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(edge, edge, edge, edge);
    layout->setSpacing(edge);
    layout->addWidget(heading);
    layout->addWidget(fieldRows(fields));
    layout->addWidget(buttons());
    layout->setSizeConstraint(QLayout::SetFixedSize);
    focusFirst();
}

QWidget *PromptDialog::fieldRows(const QList<PromptField> &fields) {
    auto *rows = new QWidget(this);
    auto *layout = new QVBoxLayout(rows);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(rowSpacing);
    for (const PromptField &field : fields) {
        auto *edit = new QLineEdit(field.value, rows);
        edits.emplaceBack(field.key, edit);
        layout->addLayout(promptRow(field.label, edit));
    }
    const int count = static_cast<int>(fields.size());
    rows->setFixedSize(rowsWidth, count * promptRowHeight + rowSpacing * qMax(count - 1, 0));
    return rows;
}

QWidget *PromptDialog::buttons() {
    auto *box = new QDialogButtonBox(this);
    box->addButton(new AccentButton(u"OK"_s, this), QDialogButtonBox::AcceptRole);
    box->addButton(u"Cancel"_s, QDialogButtonBox::RejectRole);
    connect(box, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(box, &QDialogButtonBox::rejected, this, &QDialog::reject);
    return box;
}

void PromptDialog::focusFirst() {
    if (edits.isEmpty())
        return;
    const auto firstEmpty = std::ranges::find_if(edits, [](const auto &edit) { return edit.second->text().isEmpty(); });
    QLineEdit *first = firstEmpty == edits.end() ? edits.first().second : firstEmpty->second;
    first->setFocus();
    first->selectAll();
}

QMap<QString, QString> PromptDialog::texts() const {
    QMap<QString, QString> texts;
    for (const auto &[key, edit] : edits)
        texts.insert(key, edit->text().trimmed());
    return texts;
}

} // namespace kestor
