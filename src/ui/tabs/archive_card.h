#pragma once

#include "ui/list/row_delegate.h"

#include <QString>
#include <QWidget>

class QAction;

namespace kestor {

class AccentButton;
class ToneLabel;

/// The zip that can be made of a revision: its name, the folder in it, and the button that makes it.
class ArchiveCard final : public QWidget {
    Q_OBJECT

public:
    /// `createZip` must outlive the card.
    explicit ArchiveCard(QAction *createZip, QWidget *parent = nullptr);

    /// The name of the zip without its extension, and of the one folder in it.
    void setRootName(const QString &rootName);
    void setAccess(TickAccess access);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    ToneLabel *name;
    ToneLabel *folder;
    AccentButton *button;
};

} // namespace kestor
