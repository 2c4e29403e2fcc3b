#pragma once

#include "model/language.h"

#include <QList>
#include <QString>
#include <QUuid>

#include <optional>

namespace kestor {

/// What the output sheet shows after a command. The fields are called stdoutText and stderrText because the C library
/// owns `stdout` and `stderr` as macros.
struct CommandOutput {
    QUuid id{};            ///< fresh for every presentation
    QString title{};       ///< for example "svn Help"
    QString commandLine{}; ///< display form
    qint32 status = 0;     ///< the tool's exit status
    QString stdoutText{};
    QString stderrText{};
    std::optional<QList<LanguageDistributionEntry>> languageDistribution{}; ///< shown instead of tool output

    friend bool operator==(const CommandOutput &, const CommandOutput &) = default;
};

/// A failure or refusal shown to the user.
struct AppAlert {
    QUuid id{}; ///< fresh each time
    QString title{};
    QString message{};

    friend bool operator==(const AppAlert &, const AppAlert &) = default;
};

} // namespace kestor
