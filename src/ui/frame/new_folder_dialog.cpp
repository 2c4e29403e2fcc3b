#include "ui/frame/new_folder_dialog.h"

#include "ui/look/metrics.h"

#include <QDir>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>

namespace kestor {

NewFolderDialog::NewFolderDialog(const NewFolderTexts &texts, QWidget *parent) : QFileDialog(parent, texts.title) {
    // The panels of the desktop have no place for the message.
    setOption(DontUseNativeDialog);
    setOption(ShowDirsOnly);
    setAcceptMode(AcceptSave);
    setFileMode(AnyFile);
    setLabelText(Accept, texts.button);
    setLabelText(FileName, texts.nameLabel);
    auto *message = new QLabel(texts.message, this);
    message->setMargin(paneEdge);
    layout()->setMenuBar(message);
    selectFile(texts.name);
    // A file panel offers to open a folder of the typed name.
    connect(nameField(), &QLineEdit::textChanged, this, [this, texts] { setLabelText(Accept, texts.button); });
}

QLineEdit *NewFolderDialog::nameField() const {
    return findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
}

QString NewFolderDialog::typedName() const {
    return nameField()->text().trimmed();
}

QString NewFolderDialog::path() const {
    const QString name = typedName();
    return name.isEmpty() ? directory().absolutePath() + u'/' : directory().absoluteFilePath(name);
}

/// A file panel would enter a folder of that name, and ask whether to replace a file.
void NewFolderDialog::accept() {
    if (typedName().endsWith(u'/'))
        return QFileDialog::accept();
    QDialog::accept(); // NOLINT(bugprone-parent-virtual-call): not what the panel does
}

} // namespace kestor
