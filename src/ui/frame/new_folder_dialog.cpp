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
}

QString NewFolderDialog::typedName() const {
    const auto *field = findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
    return field == nullptr ? QString() : field->text().trimmed();
}

QString NewFolderDialog::path() const {
    return QDir::cleanPath(directory().absoluteFilePath(typedName()));
}

/// A file panel would enter a folder of that name, and ask whether to replace a file.
void NewFolderDialog::accept() {
    if (typedName().endsWith(u'/'))
        return QFileDialog::accept();
    QDialog::accept();
}

} // namespace kestor
