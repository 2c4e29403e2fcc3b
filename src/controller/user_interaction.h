#pragma once

#include "model/git_branch.h"
#include "model/prompt_field.h"
#include "model/switch_target.h"

#include <QCoroTask>
#include <QList>
#include <QMap>
#include <QString>
#include <QtGlobal>

#include <cstdint>
#include <optional>

namespace kestor {

/// What came of asking for a terminal.
struct TerminalResult {
    enum class Outcome : std::uint8_t { opened, notFound, failed };
    Outcome outcome = Outcome::opened;
    QString errorDescription{}; ///< of a failure
};

/// The texts of the panel that asks for a new folder.
struct NewFolderTexts {
    QString title{};
    QString message{};
    QString button{};    ///< accepts
    QString nameLabel{}; ///< of the field with the name
    QString name{};      ///< offered
};

/// Everything the controller asks of the user and the desktop. The window implements it; tests script it.
/// Main thread only. Answers may come long after the question.
class UserInteraction {
public:
    UserInteraction() = default;
    virtual ~UserInteraction() = default;
    Q_DISABLE_COPY_MOVE(UserInteraction)

    /// Asks with the buttons "Continue" and "Cancel"; true only for the first.
    virtual QCoro::Task<bool> confirm(QString title, QString message) = 0;
    /// Asks for texts: each field's key with its text, trimmed; nothing when cancelled.
    virtual QCoro::Task<std::optional<QMap<QString, QString>>> prompt(QString title, QList<PromptField> fields) = 0;
    /// Lets the user choose one existing folder (absolute path); nothing when cancelled.
    virtual QCoro::Task<std::optional<QString>> chooseDirectory(QString title) = 0;
    /// Lets the user choose one existing file (absolute path); nothing when cancelled. `message` says what for.
    virtual QCoro::Task<std::optional<QString>> chooseFile(QString title, QString message = QString()) = 0;
    /// Lets the user choose where to save a file (absolute path), with `name` offered and an existing file confirmed;
    /// nothing when cancelled. `button` accepts.
    virtual QCoro::Task<std::optional<QString>> chooseSaveFile(QString title, QString button, QString name) = 0;
    /// Lets the user choose the place and the name of a folder that is to be created (absolute path), whatever stands
    /// there; nothing when cancelled.
    virtual QCoro::Task<std::optional<QString>> chooseNewFolder(NewFolderTexts texts) = 0;
    /// Lets the user choose one of the branches, or type a name, which then counts as that of a local one; nothing when
    /// cancelled or when neither was done. `currentBranchName` is marked and offered.
    virtual QCoro::Task<std::optional<SwitchTarget>> chooseBranch(QList<GitBranch> branches,
                                                                  std::optional<QString> currentBranchName) = 0;
    /// Opens the folder in the file manager; false when that failed.
    virtual QCoro::Task<bool> openInFileManager(QString directory) = 0;
    /// Opens a terminal in the folder.
    virtual QCoro::Task<TerminalResult> openTerminal(QString directory) = 0;
};

} // namespace kestor
