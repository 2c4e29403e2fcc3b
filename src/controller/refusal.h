#pragma once

#include <QFileInfo>
#include <QString>

#include <optional>

namespace kestor {

/// Why something is not begun at all, as an alert.
struct Refusal {
    QString title{};
    QString message{};

    friend bool operator==(const Refusal &, const Refusal &) = default;
};

/// Set when the project at that path has no folder any more. Reads the disk.
inline std::optional<Refusal> missingFolder(const QString &path) {
    if (QFileInfo(path).isDir())
        return std::nullopt;
    return Refusal{QStringLiteral("Project Folder Missing"),
                   path + QStringLiteral(" does not exist or is not a folder.")};
}

} // namespace kestor
