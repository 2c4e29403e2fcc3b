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

/// The last path component.
QStringView fileNameOf(QStringView path);

/// The lower-cased extension of a path's last component, without its dot; "" for names without one, ".profile" among
/// them.
QString fileExtensionOf(QStringView path);

} // namespace kestor
