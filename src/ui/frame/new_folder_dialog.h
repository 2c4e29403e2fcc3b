#pragma once

#include "controller/user_interaction.h"

#include <QFileDialog>

class QLineEdit;

namespace kestor {

/// Asks for the place and the name of a folder that is to be created. A name that is taken is accepted, too: whoever
/// asks knows what to say about it.
class NewFolderDialog final : public QFileDialog {
    Q_OBJECT

public:
    NewFolderDialog(const NewFolderTexts &texts, QWidget *parent);

    /// The absolute path; ends with "/" when no name was typed.
    QString path() const;

protected:
    void accept() override;

private:
    QLineEdit *nameField() const;
    QString typedName() const;
};

} // namespace kestor
