#pragma once

#include "ui/preview/detail_pane.h"
#include "ui/tabs/history_sizes.h"

#include <QByteArray>
#include <QList>
#include <QRect>

#include <optional>

class QSettings;

namespace kestor {

/// What of the window is kept from one run to the next. Absent or odd values are the defaults.
struct WindowState {
    QByteArray geometry{}; ///< as QWidget::saveGeometry has it
    QRect frame{};         ///< where the window was, on the desktop
    int sidebarWidth = 208;
    bool sidebarHidden = false;
    int listWidth = 400;
    int archivesWidth = 680;
    int messageHeight = 0;  ///< of the commit panel; 0 for what it asks for
    int incomingHeight = 0; ///< of the revisions in Incoming; 0 for what they need
    HistorySizes history{};
    int textSize = 0; ///< pixels that diffs and output are larger than the system's fixed font
    FormChoices forms{};

    friend bool operator==(const WindowState &, const WindowState &) = default;
};

/// The one value under which the state is stored, "KestorSVN.window"; a value that does not decode reads as defaults.
WindowState loadWindowState(const QSettings &settings);
void saveWindowState(QSettings &settings, const WindowState &state);

/// Where to put the window when `frame` lies off every one of `screens`: in the middle of the first, in its own size
/// where that fits. Nothing when enough of it can be seen, or when there is no frame or no screen.
std::optional<QRect> recoveredFrame(const QRect &frame, const QList<QRect> &screens);

} // namespace kestor
