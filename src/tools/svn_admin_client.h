#pragma once

#include "tools/searched_tool.h"

#include <QSettings>

namespace kestor {

/// Runs `svnadmin`: the one beside a chosen `svn` first, else PATH, else the usual folders.
class SVNAdminClient final : public SearchedTool {
public:
    /// `settings` must outlive the client.
    explicit SVNAdminClient(QSettings &settings) : defaults(settings) {}

private:
    Search search(const QString &directory, RunPurpose purpose) const override;

    QSettings &defaults;
};

} // namespace kestor
