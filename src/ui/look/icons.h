#pragma once

#include <QIcon>

#include <cstdint>

namespace kestor {

/// The line drawings of the window, 16 px on a side, painted from paths in the palette's text color at any scale.
enum class Icon : std::uint8_t {
    search,
    clear,
    plus,
    minus,
    sidebar,
    refresh,
    update,
    terminal,
    folder,
    more,
    branch,
    chevronDown,
    chevronRight,
    arrowUp,
    arrowDown,
    copy,
    close,
    check,
    warning,
    play,
    pause,
    archive,
};

QIcon icon(Icon icon);

} // namespace kestor
