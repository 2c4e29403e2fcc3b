#pragma once

#include "controller/app_state.h"
#include "ui/frame/color_scheme.h"
#include "ui/frame/main_window.h"
#include "ui/frame/window_interaction.h"

#include <QSettings>

namespace kestor {

/// Tells the toolkit the names under which preferences are kept. To be called before the first QSettings.
void setProgramNames();

/// The window and all that is behind it. Needs a QApplication; main thread only.
class Program {
public:
    /// `settings` must outlive the program. Shows nothing yet.
    explicit Program(QSettings &settings);

    /// Shows the window, then begins to load the selected project.
    void start();

    AppState &state() { return appState; }
    MainWindow &window() { return mainWindow; }

private:
    FallbackColors colors{};
    WindowInteraction interaction{};
    AppState appState;
    MainWindow mainWindow;
};

} // namespace kestor
