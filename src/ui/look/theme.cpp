#include "ui/look/theme.h"

namespace kestor {

namespace {

// Light and dark, one row per color of Theme.

struct Row {
    QColor Theme::*color;
    QRgb light;
    QRgb dark;
};

constexpr Row rows[] = {
    {&Theme::window, 0xFFF2F3F5, 0xFF24272C},        {&Theme::base, 0xFFFFFFFF, 0xFF1B1D21},
    {&Theme::alternate, 0xFFF8F9FA, 0xFF202328},     {&Theme::separator, 0xFFDADDE2, 0xFF363A42},
    {&Theme::outline, 0xFF858C97, 0xFF757D89},       {&Theme::text, 0xFF1C2026, 0xFFE4E7EB},
    {&Theme::muted, 0xFF57606B, 0xFFA3ABB6},         {&Theme::disabled, 0xFF9299A3, 0xFF6C737E},
    {&Theme::accent, 0xFF2A64C5, 0xFF3872D6},        {&Theme::accentText, 0xFFFFFFFF, 0xFFFFFFFF},
    {&Theme::accentInk, 0xFF1F57B4, 0xFF86B4FA},     {&Theme::selection, 0xFFD5E2F8, 0xFF253C66},
    {&Theme::selectionIdle, 0xFFE2E5EA, 0xFF34383F}, {&Theme::hover, 0xFFF1F4F8, 0xFF262A30},
    {&Theme::focusRing, 0xFF2A64C5, 0xFF6EA4FA},     {&Theme::button, 0xFFFFFFFF, 0xFF2C3036},
    {&Theme::buttonLine, 0xFFB9BFC8, 0xFF4B515B},    {&Theme::addText, 0xFF146C34, 0xFF6CCB8A},
    {&Theme::delText, 0xFFB3261E, 0xFFFF8F88},       {&Theme::addLine, 0xFFE9F6EC, 0xFF19291F},
    {&Theme::addGutter, 0xFFD7EEDD, 0xFF1E3527},     {&Theme::addWord, 0xFFB4E2C0, 0xFF265A39},
    {&Theme::delLine, 0xFFFDEFEE, 0xFF301D1F},       {&Theme::delGutter, 0xFFFADEDC, 0xFF412426},
    {&Theme::delWord, 0xFFF8C6C2, 0xFF6F2E31},       {&Theme::hunkBand, 0xFFEDF1F7, 0xFF232932},
    {&Theme::hunkText, 0xFF4C5766, 0xFFA9B3C1},      {&Theme::gutter, 0xFFF8F9FA, 0xFF202328},
    {&Theme::gutterText, 0xFF57606B, 0xFFA3ABB6},    {&Theme::addMark, 0xFF2E9E54, 0xFF3FA864},
    {&Theme::delMark, 0xFFD9534B, 0xFFD9615A},       {&Theme::checkA, 0xFFFFFFFF, 0xFF26292E},
    {&Theme::checkB, 0xFFE4E7EB, 0xFF31353B},        {&Theme::rulerView, 0xFFC0C5CD, 0xFF4A505A},
};

Theme builtInTheme(ColorScheme scheme) {
    Theme theme;
    theme.scheme = scheme;
    for (const Row &row : rows)
        theme.*row.color = QColor::fromRgba(scheme == ColorScheme::light ? row.light : row.dark);
    return theme;
}

bool isDark(const QColor &color) {
    return 0.299 * color.redF() + 0.587 * color.greenF() + 0.114 * color.blueF() < 0.5;
}

struct BadgeRow {
    QRgb lightTile, lightLetter, darkTile, darkLetter;
};

BadgeColors pick(const BadgeRow &row, const Theme &theme) {
    if (theme.scheme == ColorScheme::light)
        return {QColor::fromRgba(row.lightTile), QColor::fromRgba(row.lightLetter)};
    return {QColor::fromRgba(row.darkTile), QColor::fromRgba(row.darkLetter)};
}

} // namespace

Theme themeFor(const QPalette &palette) {
    const ColorScheme scheme = isDark(palette.color(QPalette::Base)) ? ColorScheme::dark : ColorScheme::light;
    Theme theme = builtInTheme(scheme);
    const QColor highlight = palette.color(QPalette::Active, QPalette::Highlight);
    if (palette.color(QPalette::Active, QPalette::Window) == theme.window && highlight == theme.accent)
        return theme;
    theme.window = palette.color(QPalette::Active, QPalette::Window);
    theme.base = palette.color(QPalette::Active, QPalette::Base);
    theme.alternate = palette.color(QPalette::Active, QPalette::AlternateBase);
    theme.text = palette.color(QPalette::Active, QPalette::Text);
    theme.accent = highlight;
    theme.accentText = palette.color(QPalette::Active, QPalette::HighlightedText);
    theme.selection = mixed(theme.base, highlight, scheme == ColorScheme::light ? 0.20 : 0.34);
    return theme;
}

QPalette fallbackPalette(ColorScheme scheme) {
    const Theme theme = builtInTheme(scheme);
    QPalette palette(theme.text, theme.button, mixed(theme.button, theme.base, 0.5), theme.separator, theme.outline,
                     theme.text, theme.accentText, theme.base, theme.window);
    palette.setColor(QPalette::AlternateBase, theme.alternate);
    palette.setColor(QPalette::Highlight, theme.accent);
    palette.setColor(QPalette::HighlightedText, theme.accentText);
    palette.setColor(QPalette::PlaceholderText, theme.muted);
    palette.setColor(QPalette::ToolTipBase, theme.window);
    palette.setColor(QPalette::ToolTipText, theme.text);
    palette.setColor(QPalette::Link, theme.accentInk);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, theme.disabled);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, theme.selectionIdle);
    palette.setColor(QPalette::Disabled, QPalette::HighlightedText, theme.disabled);
    return palette;
}

BadgeColors conflictBadgeColors(const Theme &theme) {
    return pick({0xFFB3261E, 0xFFFFFFFF, 0xFFF08A83, 0xFF2A0B0A}, theme);
}

BadgeColors badgeColors(SVNStatusKind kind, const Theme &theme) {
    switch (kind) {
    case SVNStatusKind::added:
        return pick({0xFFD9F1E0, 0xFF146030, 0xFF1E4029, 0xFF86DDA0}, theme);
    case SVNStatusKind::modified:
        return pick({0xFFFAE8C3, 0xFF744700, 0xFF463612, 0xFFF2C76B}, theme);
    case SVNStatusKind::deleted:
        return pick({0xFFFADBD8, 0xFF9C1D18, 0xFF4E2325, 0xFFFFA099}, theme);
    case SVNStatusKind::replaced:
        return pick({0xFFE8DDFA, 0xFF5A2CA0, 0xFF3A2C58, 0xFFC9AEFA}, theme);
    case SVNStatusKind::conflicted:
        return conflictBadgeColors(theme);
    case SVNStatusKind::missing:
    case SVNStatusKind::incomplete:
    case SVNStatusKind::obstructed:
        return pick({0xFFFDE0CC, 0xFF8A3500, 0xFF4C2D18, 0xFFFFB184}, theme);
    case SVNStatusKind::merged:
        return pick({0xFFD8E7FC, 0xFF1B4F9C, 0xFF20395F, 0xFF9CC4FF}, theme);
    case SVNStatusKind::external:
        return pick({0xFFD2EEF0, 0xFF0A5661, 0xFF163F45, 0xFF83D8E0}, theme);
    case SVNStatusKind::ignored:
        return pick({0xFFE4E7EB, 0xFF4C5561, 0xFF383D45, 0xFFB9C0CA}, theme);
    case SVNStatusKind::unversioned:
    case SVNStatusKind::unknown:
        return pick({0xFFE4E7EB, 0xFF3E4753, 0xFF383D45, 0xFFCDD3DB}, theme);
    case SVNStatusKind::none:
    case SVNStatusKind::normal:
        break;
    }
    return {QColor(), theme.text};
}

QColor mixed(const QColor &color, const QColor &over, double weight) {
    const auto channel = [weight](float from, float to) {
        return static_cast<float>(from + (static_cast<double>(to) - from) * weight);
    };
    return QColor::fromRgbF(channel(color.redF(), over.redF()), channel(color.greenF(), over.greenF()),
                            channel(color.blueF(), over.blueF()));
}

} // namespace kestor
