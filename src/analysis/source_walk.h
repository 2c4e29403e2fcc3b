#pragma once

#include "analysis/language_distribution.h"

#include <QString>

#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace kestor {

/// What the files of one definition add up to.
struct LanguageTotal {
    LanguageDefinition language{};
    qint64 bytes = 0;
    std::string firstFile{}; ///< of the counted files' paths, the one that comesFirst()
};

/// Folder by folder in the order of bytes: the order of walking, whatever the disk and the threads make of it.
bool comesFirst(std::string_view path, std::string_view other);

/// One total per definition of the source files below `root`, in no order. See LanguageDistributionAnalyzer.
std::vector<LanguageTotal> sourceTotals(const QString &root, const CustomLanguages &custom,
                                        const std::stop_token &stop);

} // namespace kestor
