#pragma once

#include "controller/user_interaction.h"

#include <QStringList>

#include <functional>

namespace kestor::testing {

/// Answers every question at once from what the test set, and keeps what was asked.
class ScriptedUser final : public UserInteraction {
public:
    bool confirms = true;
    std::function<void()> meanwhile{};                    ///< what happens before a question is answered
    std::optional<QMap<QString, QString>> promptAnswer{}; ///< of every prompt that promptAnswers has no answer for
    QList<std::optional<QMap<QString, QString>>> promptAnswers{}; ///< of the next prompts, in turn
    std::optional<QString> chosenDirectory{};
    std::optional<QString> chosenFile{};
    std::optional<QString> chosenSaveFile{};
    std::optional<QString> chosenNewFolder{};
    std::optional<SwitchTarget> chosenBranch{};
    bool fileManagerWorks = true;
    TerminalResult terminalResult{};

    QStringList asked{}; ///< "confirm TITLE: MESSAGE", "directory TITLE", "file manager PATH", ...

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
};

} // namespace kestor::testing
