#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <optional>

namespace kestor {

enum class DiffPreviewKind : std::uint8_t { empty, text, image, font, audio, binary };

/// What is shown of a changed file instead of, or beside, its text diff.
struct DiffPreview {
    DiffPreviewKind kind = DiffPreviewKind::empty;
    QString path{};                      ///< as shown
    QString text{};                      ///< diff text when `kind` is text
    QString message{};                   ///< explanatory line, for example of a binary file
    std::optional<QByteArray> oldData{}; ///< content of the base version
    std::optional<QByteArray> newData{}; ///< changed content

    friend bool operator==(const DiffPreview &, const DiffPreview &) = default;
};

} // namespace kestor
