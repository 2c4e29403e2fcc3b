#pragma once

#include <QString>
#include <QtGlobal>

namespace kestor {

/// A built-in language: its name and color ("#RRGGBB").
struct LanguageDefinition {
    QString name{};
    QString colorHex{};

    friend bool operator==(const LanguageDefinition &, const LanguageDefinition &) = default;
};

/// One row of the language distribution. Identified by `name`.
struct LanguageDistributionEntry {
    QString name{};
    qint64 bytes = 0; ///< total size of the files counted for the language
    QString colorHex{};

    friend bool operator==(const LanguageDistributionEntry &, const LanguageDistributionEntry &) = default;
};

} // namespace kestor
