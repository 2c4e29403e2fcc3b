#pragma once

#include "controller/app_state.h"
#include "support/awaited.h"
#include "support/held_tool.h"
#include "support/scripted_user.h"
#include "support/temp_tree.h"

#include <QCoreApplication>
#include <QSettings>

#include <gtest/gtest.h>

namespace kestor::testing {

/// A controller of two projects (of none without a kind) in one folder, whose tools end when told.
class HeldApp {
public:
    explicit HeldApp(std::optional<RepositoryKind> kind) {
        if (kind) {
            ProjectStore(settings).save({{QUuid::createUuid(), QStringLiteral("one"), folder.path(), *kind},
                                         {QUuid::createUuid(), QStringLiteral("two"), folder.path(), *kind}});
        }
        app = std::make_unique<AppState>(settings, user, Tools{tool, tool, tool});
    }
    /// Ends the first unfinished run with these arguments, once there is one.
    void finish(const QStringList &arguments, const QByteArray &output, qint32 status = 0) {
        ASSERT_TRUE(waitUntil([&] { return tool->finish(arguments, output, status, status == 0 ? "" : "svn: E1"); }))
            << qPrintable(arguments.join(u' '));
    }
    /// Ends the run with that number.
    void finishRun(qsizetype number, const QByteArray &output) {
        tool->runs[number].promise->addResult(SVNCommandResult{{}, 0, output, {}});
        tool->runs[number].promise->finish();
    }
    qsizetype runs(const QStringList &arguments) const { return tool->vectors().count(arguments); }
    bool waitForRun(const QStringList &arguments, qsizetype count = 1) const {
        return waitUntil([&] { return runs(arguments) == count; });
    }
    /// Lets everything happen that happens without a tool.
    static void settle() {
        for (int i = 0; i < 50; ++i)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
    }

    TempTree folder{};
    QSettings settings{folder.path(QStringLiteral("test.conf")), QSettings::IniFormat};
    ScriptedUser user{};
    std::shared_ptr<HeldTool> tool = std::make_shared<HeldTool>();
    std::vector<QCoro::Task<>> tasks{};
    std::unique_ptr<AppState> app{};
};

} // namespace kestor::testing
