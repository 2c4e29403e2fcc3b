#pragma once

#include "ui/tabs/detail_section.h"
#include "ui/tabs/repository_fields.h"

class QLineEdit;
class QToolButton;

namespace kestor {

class ToneLabel;

/// What is known of the project's repository, to be read, selected and copied.
class RepositorySection final : public DetailSection {
    Q_OBJECT

public:
    explicit RepositorySection(QWidget *parent = nullptr);

    void setFields(const QList<RepositoryField> &wanted);

protected:
    void changeEvent(QEvent *event) override;

private:
    void fillTable();
    bool showInPlace(const QList<RepositoryField> &wanted);

    QList<RepositoryField> fields{};
    QToolButton *copy;
    QWidget *table = nullptr; ///< made anew with other labels
    QList<QLineEdit *> values{};
};

} // namespace kestor
