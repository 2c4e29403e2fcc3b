#pragma once

#include "tools/searched_tool.h"

#include <QSettings>

namespace kestor {

/// Runs `svn`. The executable is looked up afresh on every run: the preference "KestorSVN.svnExecutablePath" as it
/// stands, else PATH, else the usual folders.
class SVNClient final : public SearchedTool {
public:
    /// `settings` must outlive the client.
    explicit SVNClient(QSettings &settings) : defaults(settings) {}

    /// How the executable is named to the user: the preference, else the path found, else "svn from PATH".
    QString displayExecutable() const;

private:
    Search search(const QString &directory, RunPurpose purpose) const override;

    QSettings &defaults;
};

} // namespace kestor
