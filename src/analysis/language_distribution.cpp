#include "analysis/language_distribution.h"

#include "analysis/language_tables.h"
#include "analysis/source_walk.h"
#include "model/file_order.h"

#include <QtConcurrentRun>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

constexpr std::array fallbackPalette{"#3178c6"_L1, "#f1e05a"_L1, "#3572A5"_L1, "#e34c26"_L1,
                                     "#563d7c"_L1, "#89e051"_L1, "#dea584"_L1, "#00ADD8"_L1};

/// One entry per name, in the color of the definition whose first file comes first.
QList<LanguageDistributionEntry> mergedByName(std::vector<LanguageTotal> totals) {
    std::ranges::sort(totals, comesFirst, &LanguageTotal::firstFile);
    QList<LanguageDistributionEntry> entries;
    for (const LanguageTotal &total : totals) {
        const auto entry = std::ranges::find(entries, total.language.name, &LanguageDistributionEntry::name);
        if (entry == entries.end())
            entries.append({total.language.name, total.bytes, total.language.colorHex});
        else
            entry->bytes += total.bytes;
    }
    return entries;
}

} // namespace

QList<LanguageDistributionEntry> LanguageDistributionAnalyzer::analyzeSync(const QString &root,
                                                                           const QList<CustomLanguageRule> &rules,
                                                                           const std::stop_token &stop) {
    QList<LanguageDistributionEntry> entries = mergedByName(sourceTotals(root, customExtensionLanguages(rules), stop));
    sortInStandardOrder(entries, &LanguageDistributionEntry::name);
    std::ranges::stable_sort(entries, std::greater<>(), &LanguageDistributionEntry::bytes);
    return entries;
}

QFuture<QList<LanguageDistributionEntry>> LanguageDistributionAnalyzer::analyze(const QString &root,
                                                                                const QList<CustomLanguageRule> &rules,
                                                                                const std::stop_token &stop) {
    return QtConcurrent::run([root, rules, stop] { return analyzeSync(root, rules, stop); });
}

std::optional<LanguageDefinition> LanguageDistributionAnalyzer::languageDefinition(QStringView path,
                                                                                   const CustomLanguages &custom) {
    const QString extension = fileExtensionOf(path);
    if (const auto own = custom.constFind(extension); own != custom.constEnd())
        return *own;
    if (std::optional<LanguageDefinition> named = defaultFileNameLanguage(fileNameOf(path)))
        return named;
    return defaultExtensionLanguage(extension);
}

CustomLanguages LanguageDistributionAnalyzer::customExtensionLanguages(const QList<CustomLanguageRule> &rules) {
    CustomLanguages languages;
    for (const CustomLanguageRule &rule : rules) {
        const QString extension = normalizedExtension(rule.fileExtension);
        const QString name = rule.languageName.trimmed();
        const QString color = rule.colorHex.trimmed();
        if (!extension.isEmpty() && !name.isEmpty())
            languages.insert(extension,
                             {name, color.isEmpty() ? CustomLanguageRule::defaultColorHex.toString() : color});
    }
    return languages;
}

QString LanguageDistributionAnalyzer::normalizedExtension(QStringView typed) {
    QStringView extension = typed.trimmed();
    while (extension.startsWith(u'.'))
        extension = extension.sliced(1);
    while (extension.endsWith(u'.'))
        extension.chop(1);
    return extension.toString().toLower();
}

QString LanguageDistributionAnalyzer::fallbackColor(QStringView name) {
    std::uint8_t hash = 0;
    const QByteArray bytes = name.toUtf8();
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const bool endsCharacter = i + 1 == bytes.size() || (bytes[i + 1] & 0xC0) != 0x80;
        if (endsCharacter)
            hash = static_cast<std::uint8_t>(hash * 31 + static_cast<std::uint8_t>(bytes[i]));
    }
    return fallbackPalette[hash % fallbackPalette.size()];
}

} // namespace kestor
