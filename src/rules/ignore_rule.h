#pragma once

#include "rules/glob.h"

#include <QString>
#include <QStringView>

#include <optional>

namespace kestor {

/// One pattern line of an ignore file, compiled once.
class IgnoreRule {
public:
    /// Reads one line of an ignore file that lies in `basePath` (root-relative). Nothing for blank lines, comments and
    /// lines without a body.
    static std::optional<IgnoreRule> fromLine(QStringView line, QStringView basePath);

    QString basePath{};         ///< folder of the ignore file, normalised; "" for the root
    QString pattern{};          ///< the body, with its backslash escapes, without "!" and outer "/"
    bool isNegated = false;     ///< began with "!"
    bool directoryOnly = false; ///< ended with "/"
    bool anchored = false;      ///< began with "/"
    bool hasSlash = false;      ///< a "/" inside the body

    /// Whether the rule matches a normalised root-relative path.
    bool matches(QStringView path, bool isDirectory) const;
    /// Whether the rule could match some path inside the normalised folder, or the folder itself.
    bool canMatchDescendant(QStringView directory) const;

    // For paths without line breaks:
    /// A piece of every path that the rule matches.
    GlobPiece requiredPiece() const;
    /// What some piece of every path that the rule matches begins with; "" when nothing is known.
    QStringView requiredBegin() const;
    /// What some piece of every path that the rule matches ends with; "" when nothing is known.
    QStringView requiredEnd() const;

private:
    IgnoreRule() = default;
    void compile();
    bool matchesPathPattern(QStringView relativePath, bool isDirectory) const;
    bool matchesSomeName(QStringView relativePath, bool isDirectory) const;

    Glob glob{};
    std::optional<Glob> folderGlob{}; ///< of a path pattern that ends with "/*": what stands before it
    QString reach{};                  ///< the folder or path that holds all matches; "" for anywhere
    bool reachIsLiteral = false;      ///< nothing but `reach`, and what is inside it, can match
};

} // namespace kestor
