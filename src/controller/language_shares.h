#pragma once

#include "controller/workspace.h"

#include <QCoroTask>
#include <QProperty>
#include <QTimer>

#include <stop_token>

namespace kestor {

/// How many bytes of source each language has in the selected project: `languageDistribution`. The files are counted on
/// workers, when the Configuration tab is first shown for a project, when the project may have changed, and half a
/// second after the last change of `customLanguageRules`. What was counted stays until a newer count is there. Main
/// thread only.
class LanguageShares {
public:
    /// `shared` must outlive it.
    explicit LanguageShares(Workspace &shared);

    /// Counts what is not counted yet.
    QCoro::Task<> load();
    /// What was counted may no longer hold: counts afresh, where the tab is not shown as soon as it is.
    QCoro::Task<> reload();
    /// To be called when another project is selected.
    void reset();
    /// Abandons the count under way for good: the program ends.
    void stop();

    /// Shows the shares in the output sheet, once they are known.
    void showLanguageDistribution();

private:
    void abandonCount();

    Workspace &workspace;
    std::stop_source walk{};
    quint64 wanted = 1; ///< the number of the latest count asked for
    quint64 begun = 0;  ///< and of the latest one begun
    QTimer editing{};   ///< rules were changed a moment ago
    QPropertyNotifier editedRules;
};

} // namespace kestor
