#include "ui/tabs/repository_section.h"

#include "ui/look/flat_button.h"
#include "ui/look/icons.h"
#include "ui/look/metrics.h"
#include "ui/look/tone_label.h"

#include <QBoxLayout>
#include <QClipboard>
#include <QEvent>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLineEdit>
#include <QPainter>
#include <QToolButton>

#include <algorithm>

namespace kestor {

namespace {

constexpr int labelWidth = 136;

/// Can be selected. Without room for all of it the middle is left out, until it has the focus.
class ValueField final : public QLineEdit {
protected:
    void paintEvent(QPaintEvent *event) override {
        if (hasFocus() || fontMetrics().horizontalAdvance(text()) <= width())
            return QLineEdit::paintEvent(event);
        QPainter(this).drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                                fontMetrics().elidedText(text(), Qt::ElideMiddle, width()));
    }
};

void showValue(QLineEdit &field, const QString &value) {
    field.setText(value);
    field.setCursorPosition(0);
    field.setToolTip(value);
}

QLineEdit *valueField(const RepositoryField &field, const QFont &font) {
    auto *value = new ValueField;
    showValue(*value, field.value);
    value->setReadOnly(true);
    value->setFrame(false);
    value->setFocusPolicy(Qt::ClickFocus);
    value->setTextMargins(-2, 0, 0, 0); // a line edit keeps that much for itself
    value->setAccessibleName(field.label);
    value->setFont(field.type == RepositoryField::Type::fixed ? fixedFont(font) : font);
    return value;
}

} // namespace

RepositorySection::RepositorySection(QWidget *parent)
    : DetailSection(tr("Repository"), parent),
      copy(flatButton(Icon::copy, tr("Copy what is known of the repository"), this)) {
    copy->setText(tr("Copy"));
    copy->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    addToHeading(copy);
    connect(copy, &QToolButton::clicked, this, [this] { QGuiApplication::clipboard()->setText(copiedText(fields)); });
    fillTable();
}

void RepositorySection::setFields(const QList<RepositoryField> &wanted) {
    if (fields == wanted)
        return;
    const bool shown = showInPlace(wanted);
    fields = wanted;
    if (!shown)
        fillTable();
}

/// Keeps the focus, and the selection in values that stay; false when the labels differ.
bool RepositorySection::showInPlace(const QList<RepositoryField> &wanted) {
    const auto sameLine = [](const RepositoryField &a, const RepositoryField &b) {
        return a.label == b.label && a.type == b.type;
    };
    if (!std::ranges::equal(fields, wanted, sameLine))
        return false;
    for (qsizetype i = 0; i < wanted.size(); ++i) {
        if (values[i]->text() != wanted[i].value)
            showValue(*values[i], wanted[i].value);
    }
    return true;
}

void RepositorySection::fillTable() {
    delete table;
    values.clear();
    table = new QWidget(this);
    auto *grid = new QGridLayout(table);
    grid->setContentsMargins({});
    grid->setHorizontalSpacing(paneEdge);
    grid->setVerticalSpacing(0);
    grid->setColumnMinimumWidth(0, labelWidth);
    grid->setColumnStretch(1, 1);
    for (const RepositoryField &field : std::as_const(fields)) {
        const int row = grid->rowCount();
        grid->addWidget(new ToneLabel(field.label, Tone::muted), row, 0, Qt::AlignRight | Qt::AlignVCenter);
        values.append(valueField(field, font()));
        grid->addWidget(values.last(), row, 1);
        grid->setRowMinimumHeight(row, rowHeight(font()));
    }
    if (fields.isEmpty())
        grid->addWidget(new ToneLabel(tr("(not known yet)"), Tone::muted), 0, 0);
    body().addWidget(table);
    copy->setEnabled(!fields.isEmpty());
}

void RepositorySection::changeEvent(QEvent *event) {
    DetailSection::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        fillTable();
}

} // namespace kestor
