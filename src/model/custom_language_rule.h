#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringView>
#include <QUuid>

#include <optional>

namespace kestor {

/// A user-defined language. Identified by `id`.
struct CustomLanguageRule {
    QUuid id{};
    QString fileExtension{};
    QString languageName{};
    QString colorHex{}; ///< as typed by the user
    std::optional<QString> syntaxFilePath{};

    /// The color of a rule that has none yet.
    static constexpr QStringView defaultColorHex = u"#6e7781";

    /// The trimmed path of the syntax file; nothing when there is none or it is blank.
    std::optional<QString> normalizedSyntaxFilePath() const;
    /// "#RRGGBB" in upper case for a typed color of three or six hexadecimal digits, with or without "#".
    static std::optional<QString> normalizedColorHex(QStringView text);

    friend bool operator==(const CustomLanguageRule &, const CustomLanguageRule &) = default;
};

/// Leaves "syntaxFilePath" out when absent.
QJsonObject toJson(const CustomLanguageRule &rule);
/// Nothing when a required key is missing or of another type.
std::optional<CustomLanguageRule> customLanguageRuleFromJson(const QJsonObject &object);

} // namespace kestor
