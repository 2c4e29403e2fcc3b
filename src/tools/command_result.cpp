#include "tools/command_result.h"

#include <utility>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;

QString strictUtf8(const QByteArray &bytes) {
    return bytes.isValidUtf8() ? QString::fromUtf8(bytes) : QString();
}

} // namespace

QString SVNCommandResult::stdoutText() const {
    return strictUtf8(stdoutData);
}

QString SVNCommandResult::stderrText() const {
    return strictUtf8(stderrData);
}

SVNClientError::SVNClientError(const QString &text, std::optional<SVNCommandResult> failed)
    : result(std::move(failed)), description(text.toUtf8()) {}

SVNClientError SVNClientError::launchFailed(const QString &message) {
    return {message, std::nullopt};
}

SVNClientError SVNClientError::commandFailed(SVNCommandResult result) {
    const QString silent = u"Command exited with status %1."_s.arg(result.status);
    return {silent, std::move(result)};
}

const QByteArray &SVNClientError::words() const {
    if (result && !result->stderrData.isEmpty())
        return result->stderrData;
    return result && !result->stdoutData.isEmpty() ? result->stdoutData : description;
}

// A byte that is not UTF-8 becomes a replacement character instead of hiding the message.
QString SVNClientError::errorDescription() const {
    return QString::fromUtf8(words());
}

const char *SVNClientError::what() const noexcept {
    return words().constData();
}

} // namespace kestor
