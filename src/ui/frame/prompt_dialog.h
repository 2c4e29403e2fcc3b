#pragma once

#include "model/prompt_field.h"

#include <QDialog>
#include <QList>
#include <QMap>

#include <utility>

class QLineEdit;

namespace kestor {

/// Asks for the texts of some fields, with "OK" and "Cancel".
class PromptDialog final : public QDialog {
    Q_OBJECT

public:
    PromptDialog(const QString &title, const QList<PromptField> &fields, QWidget *parent);

    /// Each field's key with its text, trimmed.
    QMap<QString, QString> texts() const;

private:
    void focusFirst();

    QList<std::pair<QString, QLineEdit *>> edits{};
};

} // namespace kestor
