#pragma once

#include "analysis/syntax_definition.h"
#include "analysis/text_range.h"
#include "ui/diff/diff_document.h"
#include "ui/diff/diff_rows.h"
#include "ui/diff/syntax_library.h"

#include <QBasicTimer>
#include <QCache>
#include <QDeadlineTimer>
#include <QHash>
#include <QObject>

#include <memory>
#include <vector>

namespace kestor {

/// What is painted with the text of a line.
struct LineLook {
    QList<SyntaxSpan> spans{};
    std::vector<TextRange> marks{}; ///< changed words
};

/// Spans and word marks of the lines of a diff that are in view and a screen around, made when they are needed and kept
/// for some thousand lines. Lines that take long are painted plain at first. Main thread only.
class LineLooks final : public QObject {
    Q_OBJECT

public:
    /// `viewRows` are always those of the document set last.
    explicit LineLooks(const DiffRows &viewRows, QObject *parent = nullptr);

    void setDocument(DiffDocumentPtr newDocument);
    void setLanguageRules(const QList<CustomLanguageRule> &rules) { library.setLanguageRules(rules); }
    /// Syntax files of the user that have changed are read again.
    void checkSyntaxFiles() { library.checkFiles(); }

    /// Makes the looks of the rows from `first` to before `end`, or as many of them as can be made within some
    /// milliseconds; the others and those around follow from the event loop.
    void prepare(qint64 first, qint64 end);
    /// Null for lines that have none, or not yet.
    const LineLook *find(qint64 line) const { return looks.object(line); }

signals:
    /// Rows in view have other looks now.
    void changed();

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    bool prepareUntil(const QDeadlineTimer &deadline, qint64 first, qint64 end);
    void forget();
    LineLook lookOf(const DiffRow &row);
    std::vector<TextRange> marksOf(const DiffHunk &hunk, qint64 line);
    qint64 partnerOf(const DiffHunk &hunk, qint64 line);
    void pairRun(const DiffHunk &hunk, qint64 line);
    const std::shared_ptr<CompiledSyntax> &syntaxOf(qint64 file);

    const DiffRows &rows;
    SyntaxLibrary library;
    DiffDocumentPtr document;
    QCache<qint64, LineLook> looks;                          ///< by line
    QHash<qint64, qint64> partners;                          ///< the line that each compared one is paired with, or -1
    QCache<qint64, std::vector<TextRange>> partnerMarks;     ///< of lines whose partners alone have looks
    QHash<qint64, std::shared_ptr<CompiledSyntax>> syntaxes; ///< by file
    qint64 viewFirst = 0;
    qint64 viewEnd = 0;
    bool viewIsReady = true;
    QBasicTimer later;
};

} // namespace kestor
