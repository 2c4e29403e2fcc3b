#include "tools/command_result.h"

#include <utility>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;

QString strictUtf8(const QByteArray &bytes) {
    return bytes.isValidUtf8() ? QString::fromUtf8(bytes) : QString();
}

// Here the words count: a byte that is not UTF-8 becomes a replacement character instead of hiding the message.
QString failureDescription(const SVNCommandResult &result) {
    if (!result.stderrData.isEmpty())
        return QString::fromUtf8(result.stderrData);
    if (!result.stdoutData.isEmpty())
        return QString::fromUtf8(result.stdoutData);
    return u"Command exited with status %1."_s.arg(result.status);
}

} // namespace

QString SVNCommandResult::stdoutText() const {
    return strictUtf8(stdoutData);
}

QString SVNCommandResult::stderrText() const {
    return strictUtf8(stderrData);
}

SVNClientError::SVNClientError(QString text, std::optional<SVNCommandResult> failed)
    : description(std::move(text)), result(std::move(failed)), utf8(description.toUtf8()) {}

SVNClientError SVNClientError::launchFailed(QString message) {
    return {std::move(message), std::nullopt};
}

SVNClientError SVNClientError::commandFailed(SVNCommandResult result) {
    QString description = failureDescription(result);
    return {std::move(description), std::move(result)};
}

} // namespace kestor
