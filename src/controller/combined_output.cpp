#include "controller/combined_output.h"

#include "controller/display_date.h"
#include "controller/tool_text.h"

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

QString joinedParts(const QStringList &parts) {
    QStringList kept;
    for (const QString &part : parts) {
        const QString trimmed = part.trimmed();
        if (!trimmed.isEmpty())
            kept.append(trimmed);
    }
    return kept.join(u"\n\n"_s);
}

} // namespace

CommandOutput combinedOutput(const QString &title, const QString &commandLine, qint32 status,
                             const QStringList &stdoutParts, const QStringList &stderrParts) {
    return {QUuid::createUuid(),      title,       commandLine, status, joinedParts(stdoutParts),
            joinedParts(stderrParts), std::nullopt};
}

CommandOutput commandOutputOf(const QString &title, const SVNCommandResult &result) {
    return {QUuid::createUuid(),         title,       result.commandLine, result.status, toolText(result.stdoutData),
            toolText(result.stderrData), std::nullopt};
}

QString failureMessage(const CommandOutput &output) {
    if (!output.stderrText.isEmpty())
        return output.stderrText;
    if (!output.stdoutText.isEmpty())
        return output.stdoutText;
    return u"Command exited with status %1."_s.arg(output.status);
}

QString repositoryInfoText(const RepositoryInfo &info) {
    std::optional<QString> date;
    if (info.lastChangedDate)
        date = displayDate(*info.lastChangedDate);
    const std::pair<QStringView, const std::optional<QString> &> fields[] = {
        {u"Working Copy Root", info.workingCopyRoot},
        {u"URL", info.url},
        {u"Relative URL", info.relativeURL},
        {u"Repository Root", info.repositoryRoot},
        {u"Repository UUID", info.repositoryUUID},
        {u"Revision", info.revision},
        {u"Working Revision", info.workingRevision},
        {u"Last Changed Revision", info.lastChangedRevision},
        {u"Last Changed Author", info.lastChangedAuthor},
        {u"Last Changed Date", date},
    };
    QString text;
    for (const auto &[label, value] : fields) {
        if (value)
            text += label.toString() + u": "_s + *value + u'\n';
    }
    return text;
}

} // namespace kestor
