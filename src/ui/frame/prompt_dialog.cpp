#include "ui/frame/prompt_dialog.h"

#include "ui/frame/prompt_rows.h"

#include <QLineEdit>

#include <algorithm>

namespace kestor {

using namespace Qt::StringLiterals;

PromptDialog::PromptDialog(const QString &title, const QList<PromptField> &fields, QWidget *parent) : QDialog(parent) {
    auto *rows = new PromptRows(this);
    for (const PromptField &field : fields) {
        auto *edit = new QLineEdit(field.value, rows);
        edits.emplaceBack(field.key, edit);
        rows->add(field.label, edit);
    }
    layOutPrompt(this, title, rows, u"OK"_s);
    focusFirst();
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
