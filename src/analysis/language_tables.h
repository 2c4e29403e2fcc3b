#pragma once

#include "model/language.h"

#include <QString>
#include <QStringView>

#include <optional>
#include <string_view>

namespace kestor {

/// The built-in language of a file with exactly this last path component.
std::optional<LanguageDefinition> defaultFileNameLanguage(QStringView fileName);

/// Whether files of exactly this name have a language of their own.
bool isDefaultFileName(std::string_view fileName);

/// The built-in language of a lower-cased extension without its dot.
std::optional<LanguageDefinition> defaultExtensionLanguage(QStringView extension);

/// Whether folders of this name hold what tools made or fetched: no walk over sources enters them.
bool isSkippedFolderName(std::string_view name);

/// The extension of a file name with its dot; empty for names without one, ".profile" among them.
template <typename Unit>
constexpr std::basic_string_view<Unit> dottedExtension(std::basic_string_view<Unit> fileName) {
    const std::size_t dot = fileName.rfind(Unit{'.'});
    return dot == fileName.npos || dot == 0 ? std::basic_string_view<Unit>() : fileName.substr(dot);
}

/// The last path component.
QStringView fileNameOf(QStringView path);

/// The lower-cased extension of a path's last component, without its dot; "" for names without one.
QString fileExtensionOf(QStringView path);

} // namespace kestor
