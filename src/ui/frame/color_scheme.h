#pragma once

#include "ui/look/theme.h"

#include <QDBusVariant>
#include <QObject>
#include <QVariant>

#include <optional>

namespace kestor {

/// The scheme named by a text, "light" or "dark".
std::optional<ColorScheme> colorSchemeFromText(QStringView text);
/// What the desktop's color-scheme setting means, in which 1 prefers dark; boxes around the number are opened.
ColorScheme colorSchemeFromSetting(const QVariant &setting);

/// Gives the program the window's own palette where the platform sets none: the scheme of $KESTORSVN_COLOR_SCHEME, else
/// light, until the desktop's setting is known. Main thread only.
class FallbackColors final : public QObject {
    Q_OBJECT

public:
    /// To be made before the first window; applies the palette.
    explicit FallbackColors(QObject *parent = nullptr);
    /// Asks the desktop for its setting and follows it from then on. Returns at once.
    void followDesktop();

private:
    Q_SLOT void settingChanged(const QString &group, const QString &key, const QDBusVariant &value);
    void subscribe();
    void apply(ColorScheme scheme);

    bool needed = false;
    bool fixed = false; ///< by the environment
    std::optional<ColorScheme> applied{};
};

} // namespace kestor
