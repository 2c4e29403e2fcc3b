#include "ui/frame/branch_dialog.h"

#include "ui/frame/prompt_rows.h"

#include <QComboBox>
#include <QCompleter>
#include <QLineEdit>

#include <algorithm>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

QString branchTitle(const GitBranch &branch, const std::optional<QString> &currentBranchName) {
    const bool isCurrent = !branch.isRemote && branch.name == currentBranchName;
    return branch.name + (isCurrent ? u" (current)"_s : QString()) + (branch.isRemote ? u" (remote)"_s : QString());
}

QStringList localNames(const QList<GitBranch> &branches) {
    QStringList names;
    for (const GitBranch &branch : branches) {
        if (!branch.isRemote)
            names.append(branch.name);
    }
    return names;
}

} // namespace

BranchDialog::BranchDialog(const QList<GitBranch> &shownBranches, const std::optional<QString> &currentBranchName,
                           QWidget *parent)
    : QDialog(parent), branches(shownBranches) {
    auto *rows = new PromptRows(this);
    if (!branches.isEmpty())
        rows->add(u"Branch"_s, list = branchList(currentBranchName));
    rows->add(branches.isEmpty() ? u"Branch name"_s : u"Other"_s, name = nameField());
    layOutPrompt(this, u"Switch Branch"_s, rows, u"Switch"_s);
    name->setFocus();
}

/// Without a current branch none is offered: Return must not switch to whatever comes first.
QComboBox *BranchDialog::branchList(const std::optional<QString> &currentBranchName) {
    auto *box = new QComboBox(this);
    box->setPlaceholderText(u"Choose a branch"_s);
    box->setMaxVisibleItems(20);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    for (const GitBranch &branch : branches)
        box->addItem(branchTitle(branch, currentBranchName));
    const auto isOffered = [&currentBranchName](const GitBranch &branch) {
        return !branch.isRemote && branch.name == currentBranchName;
    };
    const auto offered = std::find_if(branches.cbegin(), branches.cend(), isOffered);
    box->setCurrentIndex(offered == branches.cend() ? -1 : static_cast<int>(offered - branches.cbegin()));
    return box;
}

QLineEdit *BranchDialog::nameField() {
    auto *field = new QLineEdit(this);
    field->setPlaceholderText(u"Optional branch name"_s);
    auto *completer = new QCompleter(localNames(branches), field);
    completer->setFilterMode(Qt::MatchContains);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    field->setCompleter(completer);
    return field;
}

std::optional<SwitchTarget> BranchDialog::target() const {
    const QString typed = name->text().trimmed();
    if (!typed.isEmpty())
        return SwitchTarget{typed, false};
    const int chosen = list == nullptr ? -1 : list->currentIndex();
    if (chosen < 0 || chosen >= branches.size())
        return std::nullopt;
    return SwitchTarget{branches.at(chosen).name, branches.at(chosen).isRemote};
}

} // namespace kestor
