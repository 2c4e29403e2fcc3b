#pragma once

#include "controller/app_state.h"
#include "ui/frame/arriving_folders.h"
#include "ui/frame/color_scheme.h"
#include "ui/frame/main_window.h"
#include "ui/frame/window_interaction.h"

#include <QSettings>

#include <memory>
#include <stop_token>

namespace kestor {

class InstanceStart;
struct OpenRequest;
class RequestServer;

/// Tells the toolkit the names under which preferences are kept. To be called before the first QSettings.
void setProgramNames();

/// The window and all that is behind it. Needs a QApplication; main thread only.
class Program {
public:
    /// `settings` must outlive the program. Shows nothing yet.
    Program(QSettings &settings, Tools tools);
    ~Program();
    Q_DISABLE_COPY_MOVE(Program)

    /// Shows the window, then begins to load the selected project.
    void start();

    /// Adds the folders that this start was asked to open, and from now on those of later ones. `first` must outlive
    /// the program.
    void serve(const InstanceStart &first);

    /// Brings the window to the front and adds the folders; false when the window has been closed for good.
    bool open(const OpenRequest &request);

    AppState &state() { return appState; }
    MainWindow &window() { return mainWindow; }

private:
    FallbackColors colors{};
    WindowInteraction interaction{};
    AppState appState;
    MainWindow mainWindow;
    ArrivingFolders folders;
    std::unique_ptr<RequestServer> requests{};
    std::stop_source leaving{}; ///< asked when the program ends
};

} // namespace kestor
