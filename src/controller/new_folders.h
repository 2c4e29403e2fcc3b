#pragma once

#include "controller/refusal.h"

#include <QString>

#include <optional>

namespace kestor {

// The folders that new working copies and repositories go to. Functions with "standing" or "remains" in their names
// look at the disk.

/// The folder name that is offered for the checkout of `url`.
QString offeredFolderName(const QString &url);

/// Why a typed name is not the name of one new folder.
std::optional<Refusal> folderNameRefusal(const QString &name);

/// The path of the folder `name` in `parent`.
QString folderIn(const QString &parent, const QString &name);

/// Why nothing can be put at `path`: something stands there that is not an empty folder.
std::optional<Refusal> standingDestinationRefusal(const QString &path);

/// Why nothing can be exported to `path`: anything stands there. svn takes no folder as it is, and puts a file into it.
std::optional<Refusal> standingExportRefusal(const QString &path);

/// A repository and its working copy, folders beside each other.
struct NewRepository {
    QString workingCopy{};
    QString repository{};

    friend bool operator==(const NewRepository &, const NewRepository &) = default;
};

/// The folders for the working copy at `chosenPath`; nothing when the path ends without a name or
/// with "." or "..".
std::optional<NewRepository> newRepositoryAt(const QString &chosenPath);

/// Why the repository cannot be created: one of its folders exists.
std::optional<Refusal> standingRepositoryRefusal(const NewRepository &folders);

/// A sentence that names what a failed tool left at `path`; "" when nothing or an empty folder stands there.
QString remainsText(const QString &path);

} // namespace kestor
