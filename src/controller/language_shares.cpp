#include "controller/language_shares.h"

#include "analysis/language_distribution.h"

#include <QCoroFuture>

#include <chrono>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

constexpr std::chrono::milliseconds editingTime{500};

} // namespace

LanguageShares::LanguageShares(Workspace &shared)
    : workspace(shared), editedRules(shared.customLanguageRules.addNotifier([this] { editing.start(); })) {
    editing.setSingleShot(true);
    editing.setInterval(editingTime);
    editing.callOnTimeout([this] { reload(); });
}

QCoro::Task<> LanguageShares::load() {
    const RunningOperations::Scope running(workspace.operations);
    const std::optional<Project> project = workspace.selectedProject();
    if (!project || begun == wanted || workspace.closing)
        co_return;
    begun = wanted;
    const quint64 number = wanted;
    walk = std::stop_source();
    const std::stop_token stop = walk.get_token();
    const QList<CustomLanguageRule> rules = workspace.customLanguageRules;
    const QList<LanguageDistributionEntry> shares =
        co_await LanguageDistributionAnalyzer::analyze(project->path, rules, stop);
    if (!stop.stop_requested() && workspace.isCurrent(*project, number, wanted))
        workspace.languageDistribution = shares;
}

QCoro::Task<> LanguageShares::reload() {
    const RunningOperations::Scope running(workspace.operations);
    abandonCount();
    if (workspace.selectedTab.value() == WorkflowTab::configuration)
        co_await load();
}

void LanguageShares::reset() {
    abandonCount();
    workspace.languageDistribution = std::nullopt;
}

void LanguageShares::stop() {
    editing.stop();
    walk.request_stop();
}

void LanguageShares::showLanguageDistribution() {
    if (!workspace.languageDistribution.value())
        return;
    workspace.commandOutput = CommandOutput{.id = QUuid::createUuid(),
                                            .title = u"Language Distribution"_s,
                                            .languageDistribution = workspace.languageDistribution};
}

void LanguageShares::abandonCount() {
    ++wanted;
    editing.stop();
    walk.request_stop();
}

} // namespace kestor
