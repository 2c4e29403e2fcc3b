#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace kestor::fuzz {

/// A pattern line by the plain rules of ignore files: nothing is compiled, and every path is tried in full.
struct PlainRule {
    QString basePath{};
    QString pattern{};
    bool isNegated = false;
    bool directoryOnly = false;
    bool anchored = false;

    /// Nothing for lines that hold no pattern.
    static std::optional<PlainRule> fromLine(QString line, const QString &basePath);

    bool matches(const QString &path, bool isDirectory) const;
    bool canMatchDescendant(const QString &directory) const;

private:
    bool isPathPattern() const { return anchored || pattern.contains(u'/'); }
    bool matchesPathPattern(const QString &relative, bool isDirectory) const;
};

/// Whether the glob matches the whole text, or all of it but a line break at its end.
bool globMatches(const QString &glob, const QString &text);

} // namespace kestor::fuzz
