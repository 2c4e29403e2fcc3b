#pragma once

#include "controller/workspace.h"
#include "model/language_configuration_store.h"

#include <QCoroTask>
#include <QUuid>

namespace kestor {

/// The user's own languages. Every operation that changes `customLanguageRules` saves the whole list at once; for a
/// rule that is not there it does nothing. Main thread only.
class LanguageRules {
public:
    /// Loads the rules. `shared` must outlive it.
    explicit LanguageRules(Workspace &shared);

    /// Appends a rule for "txt" files, to be edited, and returns its id.
    QUuid addCustomLanguageRule();
    /// Replaces the rule with the same id.
    void updateCustomLanguageRule(const CustomLanguageRule &rule);
    void removeCustomLanguageRule(const QUuid &id);
    /// Writes the color as "#RRGGBB"; one that is none becomes the color of a new rule.
    void normalizeCustomLanguageRuleColor(const QUuid &id);
    /// Lets the user choose the rule's syntax file; an alert tells of one that colors nothing.
    QCoro::Task<> chooseCustomLanguageSyntaxFile(QUuid id);
    void clearCustomLanguageSyntaxFile(const QUuid &id);

private:
    template <typename Change>
    void changeRule(const QUuid &id, Change change);
    void publish(const QList<CustomLanguageRule> &rules);

    Workspace &workspace;
    LanguageConfigurationStore store;
};

} // namespace kestor
