#include "controller/app_state.h"
#include "controller/working_copy_command.h"
#include "controller/written_file.h"
#include "rules/ignore_file.h"
#include "rules/working_copy_paths.h"

#include <QCoroFuture>
#include <QFile>
#include <QFileInfo>
#include <QtConcurrent>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

enum class EditOutcome : std::uint8_t { written, unchanged, failed };

struct IgnoreFileEdit {
    EditOutcome outcome = EditOutcome::unchanged;
    QString file{};
    QString failure{}; ///< in words for the user
};

/// Links are files, also those to folders: nothing lists what they lead to.
PathType typeOf(const QString &path, const QString &root) {
    const QFileInfo info(absolutePath(path, root));
    return isFolder(info) ? PathType::directory : PathType::file;
}

/// Reads the disk; workers.
QStringList ignoreRulesFor(const QList<WorkingCopyItem> &items, const QString &root) {
    QStringList rules;
    for (const WorkingCopyItem &item : items)
        rules.append(ignoreRuleFor(item.path, typeOf(item.path, root)));
    return rules;
}

/// Adds the rules to the project's ignore file. Reads and writes the disk; workers.
IgnoreFileEdit editIgnoreFile(const QString &root, const QStringList &rules) {
    IgnoreFileEdit edit;
    edit.file = ignoreFileURL(root);
    // It could lead to any file of the user's.
    if (QFileInfo(edit.file).isSymLink())
        return {EditOutcome::failed, edit.file, u"Could not write "_s + edit.file + u": It is a link."_s};
    QFile current(edit.file);
    if (current.exists() && !current.open(QIODevice::ReadOnly))
        return {EditOutcome::failed, edit.file, u"Could not write "_s + edit.file + u": "_s + current.errorString()};
    const QByteArray content = current.isOpen() ? current.readAll() : QByteArray();
    const QByteArray changed = withRules(content, rules);
    if (changed == content)
        return edit;
    edit.failure = writeFile(edit.file, changed);
    edit.outcome = edit.failure.isEmpty() ? EditOutcome::written : EditOutcome::failed;
    return edit;
}

} // namespace

QCoro::Task<> AppState::ignoreSelectedPaths() {
    const RunningOperations::Scope running(operations);
    const std::optional<Project> project = requiredProject();
    if (!project)
        co_return;
    const QList<WorkingCopyItem> acted = actionItems();
    if (acted.isEmpty()) {
        showAlert(u"No Paths Selected"_s, u"Select at least one changed path."_s);
        co_return;
    }
    // A rule takes its row from the list, and a change that is not in the list is never committed.
    const QList<WorkingCopyItem> items = unversionedItems(acted, selectedChange());
    if (items.isEmpty()) {
        showAlert(u"Ignore Failed"_s, u"Only unversioned paths can be ignored."_s);
        co_return;
    }
    const auto rulesForItems = [items, root = project->path] {
        return ignoreRulesFor(items, root);
    };
    const QStringList rules = co_await QtConcurrent::run(&workers, rulesForItems);
    co_await addIgnoreLines(*project, rules);
}

QCoro::Task<> AppState::includeIgnoredPath() {
    const RunningOperations::Scope running(operations);
    const std::optional<Project> project = requiredProject();
    if (!project)
        co_return;
    const QList<PromptField> fields{{u"path"_s, u"Path"_s, QString()}};
    const std::optional<QMap<QString, QString>> answer = co_await user.prompt(u"Include Ignored Path"_s, fields);
    const QString path = normalizedPath(answer ? answer->value(u"path"_s) : QString());
    if (path.isEmpty())
        co_return;
    if (path.split(u'/').contains(u".."_s)) {
        showAlert(u"Include Ignored Path Failed"_s, path + u" lies outside the working copy."_s);
        co_return;
    }
    const auto ruleForPath = [path, root = project->path] {
        return QStringList(includeRuleFor(path, typeOf(path, root)));
    };
    const QStringList rules = co_await QtConcurrent::run(&workers, ruleForPath);
    co_await addIgnoreLines(*project, rules);
}

QCoro::Task<> AppState::addIgnoreLines(Project project, QStringList lines) {
    const auto write = [root = project.path, lines] {
        return editIgnoreFile(root, lines);
    };
    const IgnoreFileEdit edit = co_await QtConcurrent::run(&workers, write);
    switch (edit.outcome) {
    case EditOutcome::failed:
        showAlert(u"Ignore Failed"_s, edit.failure);
        co_return;
    case EditOutcome::unchanged:
        showAlert(u"Ignore Rules Unchanged"_s, u"The selected ignore rule already exists in "_s + edit.file + u'.');
        co_return;
    case EditOutcome::written:
        break;
    }
    co_await loadStatus(RunPurpose::userCommand);
}

} // namespace kestor
