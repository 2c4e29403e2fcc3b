#include "ui/frame/prompt_dialog.h"

#include "ui/frame/prompt_rows.h"
#include "ui/look/tone_label.h"

#include <QLineEdit>
#include <QLocale>
#include <QVBoxLayout>
#include <QValidator>

#include <algorithm>
#include <limits>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

/// What a line can show without holding the window up, and about what a system passes in one argument.
constexpr int longestText = 100000;

/// Refuses to make a text longer than that: the field keeps what it has.
class LengthValidator final : public QValidator {
public:
    LengthValidator(ToneLabel *shownRefusal, QObject *parent) : QValidator(parent), refusal(shownRefusal) {}

    State validate(QString &text, int &) const override {
        const bool fits = text.size() <= longestText;
        refusal->setVisible(!fits);
        return fits ? Acceptable : Invalid;
    }

private:
    ToneLabel *refusal;
};

} // namespace

PromptDialog::PromptDialog(const QString &title, const QList<PromptField> &fields, QWidget *parent) : QDialog(parent) {
    auto *rows = new PromptRows(this);
    const QString limit = QLocale().toString(longestText);
    auto *refusal =
        new ToneLabel(u"That is longer than %1 characters and was not taken."_s.arg(limit), Tone::failure, this);
    refusal->hide();
    auto *validator = new LengthValidator(refusal, this);
    for (const PromptField &field : fields) {
        auto *edit = new QLineEdit(rows);
        // Left alone it would cut a text off without a word.
        edit->setMaxLength(std::numeric_limits<int>::max());
        edit->setText(field.value);
        edit->setValidator(validator);
        edits.emplaceBack(field.key, edit);
        rows->add(field.label, edit);
    }
    layOutPrompt(this, title, rows, u"OK"_s);
    static_cast<QVBoxLayout *>(layout())->insertWidget(2, refusal);
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
