#include "controller/language_rules.h"

#include "analysis/sublime_syntax_loader.h"

#include <QCoroFuture>
#include <QtConcurrent>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kestor {

LanguageRules::LanguageRules(Workspace &shared) : workspace(shared), store(shared.preferences) {
    workspace.customLanguageRules = store.load();
}

QUuid LanguageRules::addCustomLanguageRule() {
    const CustomLanguageRule rule{.id = QUuid::createUuid(),
                                  .fileExtension = u"txt"_s,
                                  .languageName = u"Text"_s,
                                  .colorHex = CustomLanguageRule::defaultColorHex.toString()};
    publish(workspace.customLanguageRules.value() + QList<CustomLanguageRule>{rule});
    return rule.id;
}

void LanguageRules::updateCustomLanguageRule(const CustomLanguageRule &rule) {
    changeRule(rule.id, [&rule](CustomLanguageRule &changed) { changed = rule; });
}

void LanguageRules::removeCustomLanguageRule(const QUuid &id) {
    QList<CustomLanguageRule> rules = workspace.customLanguageRules;
    rules.removeIf([&id](const CustomLanguageRule &rule) { return rule.id == id; });
    publish(rules);
}

void LanguageRules::normalizeCustomLanguageRuleColor(const QUuid &id) {
    changeRule(id, [](CustomLanguageRule &rule) {
        const std::optional<QString> color = CustomLanguageRule::normalizedColorHex(rule.colorHex);
        rule.colorHex = color.value_or(CustomLanguageRule::defaultColorHex.toString());
    });
}

QCoro::Task<> LanguageRules::chooseCustomLanguageSyntaxFile(QUuid id) {
    const RunningOperations::Scope running(workspace.operations);
    const std::optional<QString> chosen = co_await workspace.user.chooseFile(
        u"Choose Sublime Syntax"_s, u"Choose a .sublime-syntax file for this language."_s);
    if (!chosen)
        co_return;
    changeRule(id, [&chosen](CustomLanguageRule &rule) { rule.syntaxFilePath = chosen; });
    const auto read = [path = *chosen] {
        return SublimeSyntaxLoader::definition(path);
    };
    const std::optional<SyntaxDefinition> syntax = co_await QtConcurrent::run(&workspace.workers, read);
    if (!syntax || syntax->rules.isEmpty())
        workspace.showAlert(u"No Syntax Rules Found"_s, *chosen + u" holds no rules that can be read. Files of this "
                                                                  "language are colored as without it."_s);
}

void LanguageRules::clearCustomLanguageSyntaxFile(const QUuid &id) {
    changeRule(id, [](CustomLanguageRule &rule) { rule.syntaxFilePath = std::nullopt; });
}

template <typename Change>
void LanguageRules::changeRule(const QUuid &id, Change change) {
    QList<CustomLanguageRule> rules = workspace.customLanguageRules;
    const auto rule = std::ranges::find(rules, id, &CustomLanguageRule::id);
    if (rule == rules.end())
        return;
    change(*rule);
    publish(rules);
}

/// An unchanged list is not saved: nobody's bytes are replaced for nothing.
void LanguageRules::publish(const QList<CustomLanguageRule> &rules) {
    if (rules == workspace.customLanguageRules.value())
        return;
    workspace.customLanguageRules = rules;
    store.save(rules);
    workspace.writePreferences();
}

} // namespace kestor
