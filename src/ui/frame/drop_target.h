#pragma once

#include <QObject>
#include <QStringList>

#include <functional>

class QMimeData;
class QWidget;

namespace kestor {

/// The dragged folders, as absolute paths; none unless everything dragged is a folder of this machine.
QStringList draggedFolders(const QMimeData &dragged);

/// Takes folders dropped anywhere on a window, also over widgets that would take them as text.
class DropTarget final : public QObject {
    Q_OBJECT

public:
    /// `accepts` says whether folders can be taken at the moment.
    DropTarget(QWidget *window, std::function<bool()> accepts);

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    void dropped(const QStringList &folders);

private:
    bool handleDrag(QEvent &event);
    void showFrame();
    void hideFrame();

    QWidget *window;
    std::function<bool()> accepts;
    QStringList folders{};    ///< that are being dragged
    QWidget *frame = nullptr; ///< shows the target; made at the first drag
};

} // namespace kestor
