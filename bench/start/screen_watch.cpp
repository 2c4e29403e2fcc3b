#include "screen_watch.h"

#include "process_family.h"

#include <QtGlobal>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <poll.h>
#include <spawn.h>
#include <unistd.h>

namespace kestor {

namespace {

constexpr int tileSize = 32;
/// A caret blinks within one tile, or two.
constexpr std::ptrdiff_t tilesOfCaret = 4;
constexpr double quietMs = 2000;
constexpr int betweenPicturesMs = 15;
constexpr int betweenLooksMs = 250;
/// Of processor time between two looks, which waiting programs stay below.
constexpr double idleSeconds = 0.02;
/// In pixels, which the smallest windows of toolkits and their menus stay below.
constexpr int smallestSide = 200;

template <typename Reply>
using Owned = std::unique_ptr<Reply, decltype(&std::free)>;

template <typename Reply>
Owned<Reply> owned(Reply *reply) {
    return {reply, &std::free};
}

std::ptrdiff_t differences(const std::vector<quint64> &left, const std::vector<quint64> &right) {
    std::ptrdiff_t count = 0;
    for (std::size_t i = 0; i < left.size(); ++i)
        count += left[i] == right[i] ? 0 : 1;
    return count;
}

pid_t spawned(const QStringList &command) {
    QList<QByteArray> texts;
    for (const QString &text : command)
        texts.append(text.toLocal8Bit());
    std::vector<char *> arguments;
    for (QByteArray &text : texts)
        arguments.push_back(text.data());
    arguments.push_back(nullptr);
    pid_t child = 0;
    if (posix_spawnp(&child, arguments.front(), nullptr, nullptr, arguments.data(), environ) != 0)
        qFatal("cannot start %s", arguments.front());
    return child;
}

} // namespace

ScreenWatch::ScreenWatch() : display(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(display) != 0)
        qFatal("no X display");
    screen = xcb_setup_roots_iterator(xcb_get_setup(display)).data;
    const uint32_t wanted = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(display, screen->root, XCB_CW_EVENT_MASK, &wanted);
    damageEvent = xcb_get_extension_data(display, &xcb_damage_id)->first_event + XCB_DAMAGE_NOTIFY;
    owned(xcb_damage_query_version_reply(display, xcb_damage_query_version(display, 1, 1), nullptr));
    damage = xcb_generate_id(display);
    xcb_damage_create(display, damage, screen->root, XCB_DAMAGE_REPORT_LEVEL_NON_EMPTY);
    xcb_flush(display);
}

ScreenWatch::~ScreenWatch() {
    xcb_disconnect(display);
}

std::optional<SeenStart> ScreenWatch::seenStart(const QStringList &command, int patienceMs) {
    awaitEvents(0);
    windowIsMapped = false;
    clock.start();
    const pid_t program = spawned(command);
    std::optional<SeenStart> seen;
    if (awaitWindow(patienceMs)) {
        seen = SeenStart{.windowMs = elapsed(), .windowMegabytes = sharedMegabytes({program})};
        seen->restMs = awaitRest(patienceMs);
        const QList<pid_t> processes = startedProcesses();
        seen->megabytes = sharedMegabytes(processes);
        const double used = processorSeconds(processes);
        ::usleep(1'000'000);
        seen->idleMs = 1000 * (processorSeconds(processes) - used);
    }
    endStartedProcesses();
    awaitEvents(300);
    return seen;
}

bool ScreenWatch::awaitWindow(int patienceMs) {
    while (!windowIsMapped && elapsed() < patienceMs)
        awaitEvents(betweenLooksMs);
    return windowIsMapped;
}

std::optional<double> ScreenWatch::awaitRest(int patienceMs) {
    std::vector<Picture> pictures{{elapsed(), currentTiles()}};
    double lastWork = elapsed();
    double lastLook = 0;
    double used = 0;
    while (elapsed() < lastWork + quietMs) {
        if (elapsed() > patienceMs)
            return std::nullopt;
        if (awaitEvents(betweenPicturesMs) && screenIsDamaged) {
            screenIsDamaged = false;
            xcb_damage_subtract(display, damage, XCB_NONE, XCB_NONE);
            pictures.push_back({elapsed(), currentTiles()});
            if (differences(pictures.back().tiles, pictures.end()[-2].tiles) > tilesOfCaret)
                lastWork = elapsed();
        }
        if (elapsed() < lastLook + betweenLooksMs)
            continue;
        lastLook = elapsed();
        const QList<pid_t> processes = startedProcesses();
        const double usedNow = processorSeconds(processes);
        if (usedNow - used > idleSeconds || anyIsBusy(processes))
            lastWork = elapsed();
        used = usedNow;
    }
    const auto different = std::find_if(pictures.rbegin(), pictures.rend(), [&pictures](const Picture &picture) {
        return differences(picture.tiles, pictures.back().tiles) > tilesOfCaret;
    });
    return different.base()->ms;
}

bool ScreenWatch::awaitEvents(int ms) {
    pollfd ready{xcb_get_file_descriptor(display), POLLIN, 0};
    xcb_flush(display);
    auto event = owned(xcb_poll_for_event(display));
    if (!event && ::poll(&ready, 1, ms) == 1)
        event = owned(xcb_poll_for_event(display));
    for (; event; event = owned(xcb_poll_for_event(display)))
        note(*event);
    return windowIsMapped || screenIsDamaged;
}

void ScreenWatch::note(const xcb_generic_event_t &event) {
    const uint8_t type = event.response_type & 0x7fU;
    if (type == damageEvent)
        screenIsDamaged = true;
    else if (type == XCB_MAP_NOTIFY && isWindowOfUse(reinterpret_cast<const xcb_map_notify_event_t &>(event)))
        windowIsMapped = true;
}

bool ScreenWatch::isWindowOfUse(const xcb_map_notify_event_t &mapped) const {
    if (mapped.override_redirect != 0)
        return false;
    const auto size = owned(xcb_get_geometry_reply(display, xcb_get_geometry(display, mapped.window), nullptr));
    return size && size->width >= smallestSide && size->height >= smallestSide;
}

ScreenWatch::Tiles ScreenWatch::currentTiles() const {
    const int width = screen->width_in_pixels;
    const int height = screen->height_in_pixels;
    const auto request = xcb_get_image(display, XCB_IMAGE_FORMAT_Z_PIXMAP, screen->root, 0, 0, screen->width_in_pixels,
                                       screen->height_in_pixels, ~0U);
    const auto image = owned(xcb_get_image_reply(display, request, nullptr));
    if (!image || image->depth != 24)
        qFatal("no picture of a screen with 24 bits");
    const auto *pixels = reinterpret_cast<const quint32 *>(xcb_get_image_data(image.get()));
    const auto across = static_cast<std::size_t>((width + tileSize - 1) / tileSize);
    const auto down = static_cast<std::size_t>((height + tileSize - 1) / tileSize);
    Tiles tiles(across * down, 0);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            quint64 &tile =
                tiles[static_cast<std::size_t>(y / tileSize) * across + static_cast<std::size_t>(x / tileSize)];
            tile = (tile ^ *pixels++) * 0x100000001b3ULL;
        }
    }
    return tiles;
}

double ScreenWatch::elapsed() const {
    return static_cast<double>(clock.nsecsElapsed()) / 1e6;
}

} // namespace kestor
