#pragma once

#include "controller/user_interaction.h"

#include <QFileDialog>

namespace kestor {

/// Asks for the place and the name of a folder that is to be created. A name that is taken is accepted, too: whoever
/// asks knows what to say about it.
class NewFolderDialog final : public QFileDialog {
    Q_OBJECT

public:
    NewFolderDialog(const NewFolderTexts &texts, QWidget *parent);

    /// The absolute path.
    QString path() const;

protected:
    void accept() override;

private:
    QString typedName() const;
};

} // namespace kestor
