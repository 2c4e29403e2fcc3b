#pragma once

#include "controller/user_interaction.h"

#include <QPointer>
#include <QWidget>

namespace kestor {

/// Asks through dialogs that belong to one window and answers once they are closed; a dialog that dies with its window
/// counts as cancelled. Main thread only.
class WindowInteraction final : public UserInteraction {
public:
    /// The window exists later than the state that asks. Without one nothing can be asked: all is cancelled.
    void setWindow(QWidget *window);

    QCoro::Task<bool> confirm(QString title, QString message) override;
    QCoro::Task<std::optional<QMap<QString, QString>>> prompt(QString title, QList<PromptField> fields) override;
    QCoro::Task<std::optional<QString>> chooseDirectory(QString title) override;
    QCoro::Task<std::optional<QString>> chooseFile(QString title, QString message = QString()) override;
    QCoro::Task<std::optional<QString>> chooseSaveFile(QString title, QString button, QString name) override;
    QCoro::Task<std::optional<QString>> chooseNewFolder(NewFolderTexts texts) override;
    QCoro::Task<std::optional<SwitchTarget>> chooseBranch(QList<GitBranch> branches,
                                                          std::optional<QString> currentBranchName) override;
    QCoro::Task<bool> openInFileManager(QString directory) override;
    QCoro::Task<TerminalResult> openTerminal(QString directory) override;

private:
    bool bringToFront();

    QPointer<QWidget> window{};
};

} // namespace kestor
