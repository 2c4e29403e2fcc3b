#pragma once

#include <QElapsedTimer>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>
#include <xcb/damage.h>

namespace kestor {

/// What a program showed from its start on, all of it seen from outside.
struct SeenStart {
    double windowMs = 0;            ///< until its first window was mapped
    double windowMegabytes = 0;     ///< its proportional share of memory at that time
    std::optional<double> restMs{}; ///< until the screen first looked as it then stayed; nothing if it never rested
    double megabytes = 0;           ///< that of it and what it started, at the end
    double idleMs = 0;              ///< processor time that these used in the second after that
};

/// Watches an X display on which nothing else happens. A program is at rest when for two seconds neither the screen
/// changed by more than a blinking caret nor any of its processes worked.
class ScreenWatch {
public:
    /// Of the display that $DISPLAY names.
    ScreenWatch();
    ~ScreenWatch();
    Q_DISABLE_COPY_MOVE(ScreenWatch)

    /// Starts a program in the current folder and ends it at rest or when `patienceMs` are over. Nothing comes back if
    /// it showed no window in that time.
    std::optional<SeenStart> seenStart(const QStringList &command, int patienceMs);

private:
    /// A hash for each tile of the screen.
    using Tiles = std::vector<quint64>;
    struct Picture {
        double ms = 0;
        Tiles tiles{};
    };

    bool awaitWindow(int patienceMs);
    std::optional<double> awaitRest(int patienceMs);
    /// Takes what the display tells until at most `ms` from now; whether a window was mapped or the screen damaged.
    bool awaitEvents(int ms);
    void note(const xcb_generic_event_t &event);
    bool isWindowOfUse(const xcb_map_notify_event_t &mapped) const;
    Tiles currentTiles() const;
    double elapsed() const;

    xcb_connection_t *display = nullptr;
    const xcb_screen_t *screen = nullptr;
    xcb_damage_damage_t damage = 0;
    uint8_t damageEvent = 0;
    QElapsedTimer clock{};
    bool windowIsMapped = false;
    bool screenIsDamaged = false;
};

} // namespace kestor
