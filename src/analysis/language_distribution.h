#pragma once

#include "model/custom_language_rule.h"
#include "model/language.h"

#include <QFuture>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringView>

#include <optional>
#include <stop_token>

namespace kestor {

/// The languages of the user's rules by lower-cased extension.
using CustomLanguages = QHash<QString, LanguageDefinition>;

/// How many bytes of source each language has in a working copy. Any thread.
struct LanguageDistributionAnalyzer {
    /// The languages of the files below `root` (absolute), the largest first. Left out are ignored files and folders,
    /// folders of tools ("build", "node_modules"), links and everything behind them. Folders that cannot be read, and
    /// those whose path is longer than the system takes, count as empty, files that vanish meanwhile not at all. Reads
    /// every folder, on as many threads as there are cores: for workers only. Once `stop` is requested it returns
    /// within about a folder, and what it returns means nothing.
    static QList<LanguageDistributionEntry> analyzeSync(const QString &root, const QList<CustomLanguageRule> &rules,
                                                        const std::stop_token &stop = {});

    /// analyzeSync() on a worker.
    static QFuture<QList<LanguageDistributionEntry>>
    analyze(const QString &root, const QList<CustomLanguageRule> &rules, const std::stop_token &stop = {});

    /// The language of a file: of the user's rule for its extension, else of its name, else of its extension.
    static std::optional<LanguageDefinition> languageDefinition(QStringView path, const CustomLanguages &custom);

    /// Rules without extension or name are left out; of several for one extension the last one counts.
    static CustomLanguages customExtensionLanguages(const QList<CustomLanguageRule> &rules);
    /// The extension that a rule is for, lower-cased and without dots; "" when it names none.
    static QString normalizedExtension(QStringView typed);

    /// A color for a name that has none: always the same one of eight.
    static QString fallbackColor(QStringView name);
};

} // namespace kestor
