#pragma once

#include "ui/list/row_delegate.h"
#include "ui/look/bar.h"
#include "ui/tabs/revision_text.h"

#include <QList>

class QAction;
class QBoxLayout;
class QMenu;
class QTextEdit;
class QToolButton;

namespace kestor {

class HeldButton;
class ToneLabel;

/// Above the detail of a revision: its number, author, date and message, all of it selectable, and the buttons and the
/// menu for what can be done with it.
class RevisionHead final : public Bar {
    Q_OBJECT

public:
    explicit RevisionHead(QWidget *parent = nullptr);

    void setRevision(const RevisionText &wanted);

    /// A button that triggers `action`, which stays its owner's.
    void addButton(const QString &title, QAction *action);
    /// What the menu offers above the copying of revision and message.
    void setMenuActions(const QList<QAction *> &actions);
    /// Copy Revision and Copy Message, for row menus.
    QList<QAction *> copyActions() const;
    void setAccess(TickAccess access);

protected:
    void changeEvent(QEvent *event) override;

private:
    void applyLook();
    void fillMessage();
    void fitMessage();

    RevisionText text{};
    ToneLabel *revision;
    ToneLabel *origin;
    QTextEdit *message;
    QBoxLayout *buttons;
    QToolButton *more;
    QMenu *menu;
    QAction *copyRevision;
    QAction *copyMessage;
    QList<HeldButton *> actionButtons{};
};

} // namespace kestor
