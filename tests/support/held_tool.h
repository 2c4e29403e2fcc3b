#pragma once

#include "tools/tool.h"

#include <QList>
#include <QPromise>

namespace kestor::testing {

/// A tool whose runs end when the test says so: for the order of overlapping loads, which real tools leave to chance.
class HeldTool final : public Tool {
public:
    struct Run {
        QStringList arguments{};
        QString directory{};
        RunPurpose purpose = RunPurpose::userCommand;
        std::shared_ptr<QPromise<SVNCommandResult>> promise{};
    };

    QCoro::Task<SVNCommandResult> run(QStringList arguments, QString directory, CheckStatus check,
                                      RunPurpose purpose = RunPurpose::userCommand) override;

    /// Fails every unfinished run and all later ones.
    void stop() override;

    /// Ends the first unfinished run with these arguments; false when there is none.
    bool finish(const QStringList &arguments, const QByteArray &output, qint32 status = 0,
                const QByteArray &errors = {});
    /// The arguments of every run so far.
    QList<QStringList> vectors() const;

    QList<Run> runs{};

private:
    bool stopped = false;
};

} // namespace kestor::testing
