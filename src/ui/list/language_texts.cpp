#include "ui/list/language_texts.h"

#include "analysis/language_distribution.h"
#include "model/custom_language_rule.h"
#include "model/size_text.h"

#include <numeric>

using namespace Qt::StringLiterals;

namespace kestor {

QColor languageColor(const QString &name, const QString &colorHex) {
    const std::optional<QString> color = CustomLanguageRule::normalizedColorHex(colorHex);
    return QColor(color.value_or(LanguageDistributionAnalyzer::fallbackColor(name)));
}

qint64 totalBytes(const QList<LanguageDistributionEntry> &shares) {
    return std::accumulate(shares.begin(), shares.end(), qint64(0),
                           [](qint64 sum, const LanguageDistributionEntry &entry) { return sum + entry.bytes; });
}

QString shareText(qint64 bytes, qint64 total) {
    const double share = total > 0 ? static_cast<double>(bytes) / static_cast<double>(total) : 0;
    return QString::asprintf("%.1f%%", share * 100);
}

QString languagesText(const QList<LanguageDistributionEntry> &shares) {
    const qint64 total = totalBytes(shares);
    QString text;
    for (const LanguageDistributionEntry &entry : shares)
        text += entry.name + u'\t' + sizeText(entry.bytes) + u'\t' + shareText(entry.bytes, total) + u'\n';
    return text;
}

} // namespace kestor
