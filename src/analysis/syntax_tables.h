#pragma once

#include "analysis/syntax_definition.h"

#include <QStringView>

#include <optional>

namespace kestor {

/// The built-in definition for a language name in any case; nothing for languages without one.
std::optional<SyntaxDefinition> defaultSyntaxDefinition(QStringView languageName);

} // namespace kestor
