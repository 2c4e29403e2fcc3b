#pragma once

#include "model/git_branch.h"
#include "model/switch_target.h"

#include <QDialog>
#include <QList>

#include <optional>

class QComboBox;
class QLineEdit;

namespace kestor {

/// Asks for one of the branches, or for a name typed instead, with "Switch" and "Cancel".
class BranchDialog final : public QDialog {
    Q_OBJECT

public:
    /// Marks and offers the branch called `currentBranchName`. Without branches there is only the field to type in.
    BranchDialog(const QList<GitBranch> &branches, const std::optional<QString> &currentBranchName, QWidget *parent);

    /// The typed name, trimmed, as a local branch; without one the chosen branch; nothing when there is neither.
    std::optional<SwitchTarget> target() const;

private:
    QComboBox *branchList(const std::optional<QString> &currentBranchName);
    QLineEdit *nameField();

    QList<GitBranch> branches;
    QComboBox *list = nullptr; ///< absent without branches
    QLineEdit *name = nullptr;
};

} // namespace kestor
