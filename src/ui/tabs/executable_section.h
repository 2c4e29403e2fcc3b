#pragma once

#include "ui/tabs/detail_section.h"

class QAction;
class QBoxLayout;
class QLineEdit;

namespace kestor {

class HeldButton;
class ToneLabel;

/// The ways to take another `svn`. The actions must outlive what offers them.
struct ExecutableActions {
    QAction *choose = nullptr;
    QAction *useFromPath = nullptr;
};

/// Which `svn` runs, and why that one.
class ExecutableSection final : public DetailSection {
    Q_OBJECT

public:
    explicit ExecutableSection(const ExecutableActions &actions, QWidget *parent = nullptr);

    /// The user's choice, "" for the executable that is found.
    void setChosenPath(const QString &chosen);
    /// Whether the buttons are drawn as held.
    void setHeld(bool held);

protected:
    void showEvent(QShowEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void lookUp();
    void applyLook();

    QString chosenPath{};
    QLineEdit *path;
    ToneLabel *caption;
    QBoxLayout *line;
    HeldButton *chooseButton;
    HeldButton *fromPathButton;
};

} // namespace kestor
