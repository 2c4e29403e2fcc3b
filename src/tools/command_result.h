#pragma once

#include <QByteArray>
#include <QString>
#include <QtGlobal>

#include <exception>
#include <optional>

namespace kestor {

/// The outcome of one tool run. The texts are called stdoutText and stderrText because the C library owns `stdout` and
/// `stderr` as macros.
struct SVNCommandResult {
    QString commandLine{};   ///< executable and arguments in display form
    qint32 status = 0;       ///< exit status; 128 + signal number when a signal ended the tool
    QByteArray stdoutData{}; ///< everything written to standard output
    QByteArray stderrData{}; ///< everything written to standard error

    /// The output as strict UTF-8: "" when the bytes are not valid. Decodes on every call.
    QString stdoutText() const;
    QString stderrText() const;
    friend bool operator==(const SVNCommandResult &, const SVNCommandResult &) = default;
};

/// The failure of a tool. A user-readable description comes with it.
class SVNClientError : public std::exception {
public:
    /// The tool was not found or could not be started; the description is `message`.
    static SVNClientError launchFailed(const QString &message);
    /// The tool exited with a non-zero status; the description is its standard error, else its standard output, else
    /// "Command exited with status N.".
    static SVNClientError commandFailed(SVNCommandResult result);

    /// Decodes what the tool said on every call.
    QString errorDescription() const;
    /// The failed run, or nullptr when the tool never ran.
    const SVNCommandResult *failedResult() const { return result ? &*result : nullptr; }
    const char *what() const noexcept override;

private:
    SVNClientError(const QString &text, std::optional<SVNCommandResult> failed);

    /// The words of the tool where it said any. No copy: they can be long.
    const QByteArray &words() const;

    std::optional<SVNCommandResult> result;
    QByteArray description; ///< where no tool said anything
};

} // namespace kestor
