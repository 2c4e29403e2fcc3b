#include "model/custom_language_rule.h"

#include "model/project.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

bool isHexDigit(QChar c) {
    return QStringView(u"0123456789abcdefABCDEF").contains(c);
}

} // namespace

std::optional<QString> CustomLanguageRule::normalizedSyntaxFilePath() const {
    if (!syntaxFilePath)
        return std::nullopt;
    const QString trimmed = syntaxFilePath->trimmed();
    if (trimmed.isEmpty())
        return std::nullopt;
    return trimmed;
}

std::optional<QString> CustomLanguageRule::normalizedColorHex(QStringView text) {
    QStringView digits = text.trimmed();
    if (digits.startsWith(u'#'))
        digits = digits.sliced(1);
    QString color;
    for (const QChar digit : digits)
        color.append(digits.size() == 3 ? QString(2, digit) : QString(digit));
    if (color.size() != 6 || !std::all_of(color.cbegin(), color.cend(), isHexDigit))
        return std::nullopt;
    return u'#' + color.toUpper();
}

QJsonObject toJson(const CustomLanguageRule &rule) {
    QJsonObject object{{u"id"_s, uuidText(rule.id)},
                       {u"fileExtension"_s, rule.fileExtension},
                       {u"languageName"_s, rule.languageName},
                       {u"colorHex"_s, rule.colorHex}};
    if (rule.syntaxFilePath)
        object.insert(u"syntaxFilePath"_s, *rule.syntaxFilePath);
    return object;
}

std::optional<CustomLanguageRule> customLanguageRuleFromJson(const QJsonObject &object) {
    const std::optional<QUuid> id = uuidFromText(object[u"id"].toString());
    const QJsonValue extension = object[u"fileExtension"];
    const QJsonValue name = object[u"languageName"];
    const QJsonValue color = object[u"colorHex"];
    if (!id || !extension.isString() || !name.isString() || !color.isString())
        return std::nullopt;
    CustomLanguageRule rule{*id, extension.toString(), name.toString(), color.toString(), std::nullopt};
    const QJsonValue syntaxFile = object[u"syntaxFilePath"];
    if (syntaxFile.isString())
        rule.syntaxFilePath = syntaxFile.toString();
    else if (!syntaxFile.isUndefined() && !syntaxFile.isNull())
        return std::nullopt;
    return rule;
}

} // namespace kestor
