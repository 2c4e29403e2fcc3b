#include "controller/repository_detection.h"

#include "controller/tool_text.h"
#include "parsers/svn_xml_parsers.h"
#include "tools/arguments.h"

namespace kestor {

QCoro::Task<DetectedRepository> probeSubversion(std::shared_ptr<Tool> svn, QString folder) {
    const SVNCommandResult result =
        co_await svn->run(args(u"info", u"--xml"), folder, CheckStatus::yes, RunPurpose::backgroundRead);
    const RepositoryInfo info = parsedOutput<InfoParser>(result.stdoutData);
    const QString root = info.workingCopyRoot.value_or(QString());
    co_return DetectedRepository{root.isEmpty() ? folder : root, RepositoryKind::svn};
}

QCoro::Task<DetectedRepository> probeGit(std::shared_ptr<Tool> git, QString folder) {
    const SVNCommandResult result =
        co_await git->run(args(u"rev-parse", u"--show-toplevel"), folder, CheckStatus::yes, RunPurpose::backgroundRead);
    const QString root = toolText(result.stdoutData).trimmed();
    co_return DetectedRepository{root.isEmpty() ? folder : root, RepositoryKind::git};
}

} // namespace kestor
