#pragma once

#include "ui/list/row_delegate.h"
#include "ui/tabs/change_rows.h"

#include <QWidget>

class QLabel;
class QLayout;
class QPlainTextEdit;

namespace kestor {

class AccentButton;

/// Below the Changes list: the commit message, the count of ticks and the button that commits them. Given the focus, it
/// passes it to the message.
class CommitPanel final : public QWidget {
    Q_OBJECT

public:
    explicit CommitPanel(QWidget *parent = nullptr);

    /// Replaces the message without announcing it. An equal text leaves cursor and undo as they are.
    void setMessage(const QString &text);
    void setTickAccess(TickAccess wanted);
    void showCounts(const TickCounts &counts);

signals:
    /// The user has changed the message.
    void messageEdited(const QString &text);
    /// The user has pressed the button, which nothing holds back.
    void commitRequested();

private:
    QLayout *messageRow();
    QLayout *footer();
    QString message() const;

    QPlainTextEdit *editor;
    QLabel *countLabel;
    AccentButton *button;
    TickAccess access = TickAccess::editable;
};

} // namespace kestor
