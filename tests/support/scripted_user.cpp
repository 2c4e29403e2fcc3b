#include "support/scripted_user.h"

using namespace Qt::StringLiterals;

namespace kestor::testing {

QCoro::Task<bool> ScriptedUser::confirm(QString title, QString message) {
    asked.append(u"confirm "_s + title + u": "_s + message);
    if (meanwhile)
        meanwhile();
    co_return confirms;
}

QCoro::Task<std::optional<QMap<QString, QString>>> ScriptedUser::prompt(QString title, QList<PromptField> fields) {
    QStringList labels;
    for (const PromptField &field : std::as_const(fields))
        labels.append(field.label + u'=' + field.value);
    asked.append(u"prompt "_s + title + u": "_s + labels.join(u", "_s));
    // A member named here would be moved from.
    const auto answer = promptAnswers.isEmpty() ? promptAnswer : promptAnswers.takeFirst();
    co_return answer;
}

QCoro::Task<std::optional<QString>> ScriptedUser::chooseDirectory(QString title) {
    asked.append(u"directory "_s + title);
    const auto answer = chosenDirectory;
    co_return answer;
}

QCoro::Task<std::optional<QString>> ScriptedUser::chooseFile(QString title, QString message) {
    asked.append(u"file "_s + title + (message.isEmpty() ? message : u": "_s + message));
    const auto answer = chosenFile;
    co_return answer;
}

QCoro::Task<std::optional<QString>> ScriptedUser::chooseSaveFile(QString title, QString button, QString name) {
    asked.append(u"save "_s + title + u" ["_s + button + u"]: "_s + name);
    const auto answer = chosenSaveFile;
    co_return answer;
}

QCoro::Task<std::optional<QString>> ScriptedUser::chooseNewFolder(NewFolderTexts texts) {
    asked.append(u"new folder "_s + texts.title + u" ["_s + texts.button + u"]: "_s + texts.nameLabel + texts.name);
    const auto answer = chosenNewFolder;
    co_return answer;
}

QCoro::Task<std::optional<SwitchTarget>> ScriptedUser::chooseBranch(QList<GitBranch> branches,
                                                                    std::optional<QString> currentBranchName) {
    QStringList names;
    for (const GitBranch &branch : std::as_const(branches))
        names.append(branch.name);
    asked.append(u"branch "_s + currentBranchName.value_or(u"(none)"_s) + u" of "_s + names.join(u", "_s));
    const auto answer = chosenBranch;
    co_return answer;
}

QCoro::Task<bool> ScriptedUser::openInFileManager(QString directory) {
    asked.append(u"file manager "_s + directory);
    co_return fileManagerWorks;
}

QCoro::Task<TerminalResult> ScriptedUser::openTerminal(QString directory) {
    asked.append(u"terminal "_s + directory);
    const TerminalResult result = terminalResult;
    co_return result;
}

} // namespace kestor::testing
