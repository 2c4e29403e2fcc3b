#pragma once

#include "analysis/compiled_syntax.h"
#include "analysis/syntax_highlighter.h"
#include "model/custom_language_rule.h"

#include <QDateTime>
#include <QHash>
#include <QList>
#include <QObject>
#include <QString>

#include <memory>
#include <optional>

namespace kestor {

/// The definitions that files are colored by, each compiled once. Syntax files of the user are read on a worker and
/// kept until they change. Main thread only.
class SyntaxLibrary final : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    void setLanguageRules(const QList<CustomLanguageRule> &newRules);
    /// The definition for the file at `path`; null for files without colors, and until a syntax file has been read.
    std::shared_ptr<CompiledSyntax> syntaxOf(const QString &path);
    /// Looks on a worker whether syntax files that were read have changed.
    void checkFiles();

signals:
    /// syntaxOf() may give something else now.
    void changed();

private:
    /// A definition as it was when its syntax file had this time; invalid for a file that is not there.
    struct Reading {
        std::shared_ptr<CompiledSyntax> syntax{};
        QDateTime modified{};
    };
    struct Entry {
        SyntaxSource source{};
        std::optional<Reading> reading{};
        bool isBeingRead = false;
        bool hasToBeReadAgain = false; ///< once that has ended
    };

    static std::optional<Reading> readAgain(const Entry &entry);
    void startReading(const QString &key);
    void finishReading(const QString &key, std::optional<Reading> reading);

    QList<CustomLanguageRule> rules{};
    QHash<QString, Entry> entries{};
};

} // namespace kestor
