#include "analysis/syntax_highlighter.h"

#include "analysis/compiled_syntax.h"
#include "analysis/language_distribution.h"
#include "analysis/language_tables.h"
#include "analysis/sublime_syntax_loader.h"

#include <algorithm>

namespace kestor {

namespace {

using Analyzer = LanguageDistributionAnalyzer;

/// As the analyzer has it, a rule without a name is none.
bool isFor(const CustomLanguageRule &rule, const QString &extension) {
    return Analyzer::normalizedExtension(rule.fileExtension) == extension && !rule.languageName.trimmed().isEmpty();
}

} // namespace

SyntaxSource SyntaxHighlighter::source(QStringView path, const QList<CustomLanguageRule> &rules) {
    const QString extension = fileExtensionOf(path);
    const auto rule = std::find_if(rules.rbegin(), rules.rend(),
                                   [&](const CustomLanguageRule &each) { return isFor(each, extension); });
    if (!extension.isEmpty() && rule != rules.rend())
        return {rule->languageName.trimmed(), rule->normalizedSyntaxFilePath()};
    const std::optional<LanguageDefinition> language = Analyzer::languageDefinition(path, {});
    return {language ? language->name : QString(), std::nullopt};
}

std::optional<SyntaxDefinition> SyntaxHighlighter::definition(const SyntaxSource &source) {
    if (source.syntaxFile) {
        std::optional<SyntaxDefinition> own = SublimeSyntaxLoader::definition(*source.syntaxFile);
        if (own && !own->rules.isEmpty())
            return own;
    }
    return defaultDefinition(source.languageName);
}

std::optional<SyntaxDefinition> SyntaxHighlighter::definition(QStringView path,
                                                              const QList<CustomLanguageRule> &rules) {
    return definition(source(path, rules));
}

QList<SyntaxSpan> SyntaxHighlighter::collectedMatches(QStringView text, const QList<SyntaxHighlightRule> &rules) {
    return CompiledSyntax({rules}).collectedMatches(text);
}

} // namespace kestor
