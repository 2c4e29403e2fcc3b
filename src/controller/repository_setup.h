#pragma once

#include "controller/new_folders.h"
#include "controller/workspace.h"

#include <QCoroTask>

#include <memory>
#include <optional>

namespace kestor {

/// Brings new working copies in and moves trees into and out of repositories. Each operation asks for what it needs;
/// what cannot work is refused before any tool runs. Main thread only.
class RepositorySetup {
public:
    /// `shared` must outlive it.
    explicit RepositorySetup(Workspace &shared);

    /// Creates a local Subversion repository with a working copy beside it and adds that as a project.
    QCoro::Task<> createSVNRepository();
    /// Checks out or clones a URL and adds the new working copy as a project.
    QCoro::Task<> checkoutRepository();
    QCoro::Task<> importDirectory();
    QCoro::Task<> exportRepository();
    QCoro::Task<> makeRemoteDirectory();

private:
    using StandingRefusal = std::optional<Refusal> (*)(const QString &path);

    /// A working copy that is to come into being.
    struct Checkout {
        RepositoryKind kind = RepositoryKind::svn;
        QString url{};
        QString destination{};
    };

    QCoro::Task<> create(NewRepository folders);
    QCoro::Task<SVNCommandResult> createAndCheckOut(NewRepository folders);
    /// Where a panel and a prompt say that a new folder shall be; nothing when cancelled or, after an alert, refused.
    QCoro::Task<std::optional<QString>> chosenDestination(QString panelTitle, QString promptTitle, QString offeredName,
                                                          StandingRefusal standingRefusal);
    QCoro::Task<> checkOut(Checkout checkout);
    QCoro::Task<> publishCheckout(Checkout checkout, CommandOutput output);
    /// Adds what a failed run left when that is a working copy. Always throws, with what is left named.
    QCoro::Task<> giveUpCheckout(Checkout checkout, SVNClientError failure);
    /// Whether the destination is the root of a working copy or repository of its own.
    QCoro::Task<bool> isWorkingCopy(Checkout checkout);
    /// `source` of an export as svn's target; project paths are names.
    QString exportTarget(const QString &source) const;
    /// Whether there is a reason not to begin; an alert then tells it.
    bool refuses(const std::optional<Refusal> &refusal);

    Workspace &workspace;
};

} // namespace kestor
