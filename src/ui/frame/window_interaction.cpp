#include "ui/frame/window_interaction.h"

#include "ui/frame/branch_dialog.h"
#include "ui/frame/desktop.h"
#include "ui/frame/dialog_answer.h"
#include "ui/frame/message_dialog.h"
#include "ui/frame/new_folder_dialog.h"
#include "ui/frame/prompt_dialog.h"

#include <QCoroFuture>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>

namespace kestor {

namespace {

using Texts = std::optional<QMap<QString, QString>>;

QFuture<bool> askConfirmation(const QString &title, const QString &message, QWidget *window) {
    auto *dialog = new MessageDialog(MessageDialog::Purpose::confirmation, title, message, window);
    const auto accepted = [] {
        return true;
    };
    return answerOf<bool>(dialog, accepted, false);
}

QFuture<Texts> askTexts(const QString &title, const QList<PromptField> &fields, QWidget *window) {
    auto *dialog = new PromptDialog(title, fields, window);
    const auto accepted = [dialog] {
        return Texts(dialog->texts());
    };
    return answerOf<Texts>(dialog, accepted, std::nullopt);
}

QFuture<std::optional<QString>> chosenFile(QFileDialog *dialog) {
    const auto accepted = [dialog]() -> std::optional<QString> {
        const QStringList chosen = dialog->selectedFiles();
        return chosen.isEmpty() ? std::nullopt : std::optional(chosen.first());
    };
    return answerOf<std::optional<QString>>(dialog, accepted, std::nullopt);
}

QFuture<std::optional<QString>> askDirectory(const QString &title, QWidget *window) {
    auto *dialog = new QFileDialog(window, title);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    return chosenFile(dialog);
}

/// Dialogs of the platform have no room for a message.
void addMessage(QFileDialog &dialog, const QString &message) {
    auto *grid = qobject_cast<QGridLayout *>(dialog.layout());
    if (grid != nullptr && !message.isEmpty())
        grid->addWidget(new QLabel(message), grid->rowCount(), 0, 1, grid->columnCount());
}

QFuture<std::optional<QString>> askFile(const QString &title, const QString &message, QWidget *window) {
    auto *dialog = new QFileDialog(window, title);
    dialog->setFileMode(QFileDialog::ExistingFile);
    addMessage(*dialog, message);
    return chosenFile(dialog);
}

QFuture<std::optional<QString>> askSaveFile(const QString &title, const QString &button, const QString &name,
                                            QWidget *window) {
    auto *dialog = new QFileDialog(window, title);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    dialog->setLabelText(QFileDialog::Accept, button);
    // The suffix is then part of what the dialog asks to replace.
    dialog->setDefaultSuffix(QFileInfo(name).suffix());
    dialog->selectFile(name);
    return chosenFile(dialog);
}

QFuture<std::optional<QString>> askNewFolder(const NewFolderTexts &texts, QWidget *window) {
    auto *dialog = new NewFolderDialog(texts, window);
    const auto accepted = [dialog] {
        return std::optional(dialog->path());
    };
    return answerOf<std::optional<QString>>(dialog, accepted, std::nullopt);
}

QFuture<std::optional<SwitchTarget>> askBranch(const QList<GitBranch> &branches,
                                               const std::optional<QString> &currentBranchName, QWidget *window) {
    auto *dialog = new BranchDialog(branches, currentBranchName, window);
    const auto accepted = [dialog] {
        return dialog->target();
    };
    return answerOf<std::optional<SwitchTarget>>(dialog, accepted, std::nullopt);
}

} // namespace

void WindowInteraction::setWindow(QWidget *askingWindow) {
    window = askingWindow;
}

bool WindowInteraction::bringToFront() {
    if (!window)
        return false;
    window->raise();
    window->activateWindow();
    return true;
}

QCoro::Task<bool> WindowInteraction::confirm(QString title, QString message) {
    if (!bringToFront())
        co_return false;
    const QFuture<bool> answer = askConfirmation(title, message, window);
    co_return co_await answer;
}

QCoro::Task<Texts> WindowInteraction::prompt(QString title, QList<PromptField> fields) {
    if (!bringToFront())
        co_return std::nullopt;
    const QFuture<Texts> answer = askTexts(title, fields, window);
    co_return co_await answer;
}

QCoro::Task<std::optional<QString>> WindowInteraction::chooseDirectory(QString title) {
    if (!window)
        co_return std::nullopt;
    const QFuture<std::optional<QString>> answer = askDirectory(title, window);
    co_return co_await answer;
}

QCoro::Task<std::optional<QString>> WindowInteraction::chooseFile(QString title, QString message) {
    if (!window)
        co_return std::nullopt;
    const QFuture<std::optional<QString>> answer = askFile(title, message, window);
    co_return co_await answer;
}

QCoro::Task<std::optional<QString>> WindowInteraction::chooseSaveFile(QString title, QString button, QString name) {
    if (!window)
        co_return std::nullopt;
    const QFuture<std::optional<QString>> answer = askSaveFile(title, button, name, window);
    co_return co_await answer;
}

QCoro::Task<std::optional<QString>> WindowInteraction::chooseNewFolder(NewFolderTexts texts) {
    if (!window)
        co_return std::nullopt;
    const QFuture<std::optional<QString>> answer = askNewFolder(texts, window);
    co_return co_await answer;
}

QCoro::Task<std::optional<SwitchTarget>> WindowInteraction::chooseBranch(QList<GitBranch> branches,
                                                                         std::optional<QString> currentBranchName) {
    if (!bringToFront())
        co_return std::nullopt;
    const QFuture<std::optional<SwitchTarget>> answer = askBranch(branches, currentBranchName, window);
    co_return co_await answer;
}

QCoro::Task<bool> WindowInteraction::openInFileManager(QString directory) {
    co_return co_await showInFileManager(directory);
}

QCoro::Task<TerminalResult> WindowInteraction::openTerminal(QString directory) {
    co_return startTerminal(directory);
}

} // namespace kestor
