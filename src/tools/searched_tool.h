#pragma once

#include "tools/child_process.h"
#include "tools/tool.h"

#include <QProcessEnvironment>
#include <QString>

#include <optional>

namespace kestor {

/// A tool whose executable is looked up afresh on every run.
class SearchedTool : public Tool {
public:
    void begin(const QStringList &arguments, const QString &directory, RunPurpose purpose) final;
    QCoro::Task<SVNCommandResult> run(QStringList arguments, QString directory, CheckStatus check,
                                      RunPurpose purpose = RunPurpose::userCommand) final;
    QCoro::Task<SVNCommandResult> runReading(QStringList arguments, QString directory, RunPurpose purpose,
                                             OutputReader reader) final;
    void stop() final { children.stop(); }

protected:
    struct Search {
        std::optional<QString> executable{};
        QString displayName{}; ///< how a failure to start names the executable
        QString missing{};     ///< what the user is told when there is none
        QProcessEnvironment environment{};
    };
    /// For a run in `directory`.
    virtual Search search(const QString &directory, RunPurpose purpose) const = 0;

private:
    /// Throws SVNClientError when there is no executable.
    ChildCommand command(const QStringList &arguments, const QString &directory, RunPurpose purpose) const;

    ChildProcesses children;
};

} // namespace kestor
