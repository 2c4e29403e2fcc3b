#pragma once

#include <QString>
#include <QWidget>

class QDialog;

namespace kestor {

/// The rows of a prompt: labels of one width, each with a control beside it.
class PromptRows final : public QWidget {
    Q_OBJECT

public:
    explicit PromptRows(QWidget *parent);

    /// Adds a row. The label names the control for assistive tools, too.
    void add(const QString &label, QWidget *control);
};

/// Lays out a dialog of such rows: `title` above them, and below two buttons that accept and refuse it.
void layOutPrompt(QDialog *dialog, const QString &title, PromptRows *rows, const QString &accepting);

} // namespace kestor
