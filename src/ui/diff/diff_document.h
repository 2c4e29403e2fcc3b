#pragma once

#include "model/diff.h"
#include "model/line_change_summary.h"
#include "ui/diff/change_marks.h"
#include "ui/diff/long_lines.h"

#include <QString>
#include <QStringView>

#include <cstdint>
#include <memory>
#include <vector>

namespace kestor {

/// Whether a document holds all of a text or only its first lines, shown while the rest is being read.
enum class DocumentPart : std::uint8_t { first, whole };

/// A text made ready to be painted: the records of a diff, or the lines of a text without hunks. Never changed once
/// made, so any thread may read it. Lines are numbered from 0 over all files; a diff's hunk and file heads are not
/// lines.
struct DiffDocument {
    DocumentPart part = DocumentPart::whole;
    QString printed{};               ///< the text as the tool printed it; of a first part too
    ParsedDiff diff{};               ///< without files in a plain document
    QString plainText{};             ///< with line feeds only
    std::vector<qsizetype> starts{}; ///< of the lines of a plain document, and one past the last line feed
    qint64 errorHeading = -1;        ///< plain line that is a heading above error output, or -1
    qint64 lineCount = 0;
    qint64 hunkCount = 0;
    qint64 widestLine = 0;    ///< in columns
    qint64 largestNumber = 0; ///< of a line in either version; an estimate in a first part
    LineChangeSummary changes{};
    ChangeMarks marks{};
    LongLines longLines{};

    /// Whether a plain line belongs to the error output, its heading included.
    bool isError(qint64 line) const { return errorHeading >= 0 && line >= errorHeading; }
    bool isPlain() const { return diff.files.isEmpty(); }
    bool hasSeveralFiles() const { return diff.files.size() > 1; }
    /// Valid as long as the document.
    QStringView lineText(qint64 line) const;
};

/// A shared document whose last owner, on whichever thread, never waits for the release of a large one.
using DiffDocumentPtr = std::shared_ptr<const DiffDocument>;

/// The records of `text`, or its lines when it holds no hunk. Linear; any thread.
DiffDocumentPtr diffDocument(QString text);
/// The same of the first `size` characters of a longer text; expects line numbers as large as the rest may bring.
DiffDocumentPtr beginningOfDiff(const QString &text, qsizetype size);
/// The lines of `output`, followed, when there are `errors`, by the heading "Standard error" and their lines.
DiffDocumentPtr outputDocument(const QString &output, const QString &errors, DocumentPart part = DocumentPart::whole);

/// How much of the beginning of `text` is read at once: at most 2 000 lines and a bounded number of characters, cut at
/// a line feed when there is one. The size of the text when that is all.
qsizetype firstPartSize(QStringView text);

} // namespace kestor
