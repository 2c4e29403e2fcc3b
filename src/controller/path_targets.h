#pragma once

#include <QString>

namespace kestor {

/// A working-copy path as a target on svn's command line: a trailing "@" when it contains "@", which svn would read as
/// a peg revision, and "./" in front when it begins with "-", which svn would read as an option, or with "^/", which it
/// would read as an address in the repository.
QString svnTarget(const QString &path);

/// The same for `svn diff` of working files, the one command that takes "@" as part of the name and fails when another
/// one follows.
QString svnDiffTarget(const QString &path);

/// The target for `svn diff -r REVISION`, which with "BASE" compares working files alone.
QString svnDiffTarget(const QString &path, const QString &revision);

/// A working-copy path as a line of a file for svn's --targets, which trims blanks at both ends.
QString svnListedTarget(const QString &path);

/// A working-copy path as Git's pathspec: a name, never a pattern.
QString gitTarget(const QString &path);

} // namespace kestor
