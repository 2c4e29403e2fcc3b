#pragma once

#include "model/diff.h"

#include <QStringList>

namespace kestor::testing {

inline QString describedNumber(std::optional<qint64> number) {
    return number ? QString::number(*number) : QStringLiteral("-");
}

/// Everything a parsed diff says, a text for each file, hunk and line, so that a difference is easy to read.
inline QStringList described(const ParsedDiff &diff) {
    QStringList texts;
    for (const DiffFile &file : diff.files) {
        texts.append(QStringLiteral("file %1 [%2] [%3]").arg(QString::number(file.id), file.oldPath, file.newPath));
        for (const DiffHunk &hunk : file.hunks) {
            texts.append(QStringLiteral("hunk %1 [%2]").arg(QString::number(hunk.id), hunk.header));
            for (qint64 i = 0; i < hunk.lineCount; ++i) {
                const DiffLine line = hunk.line(i);
                texts.append(QStringLiteral("%1: %2 %3 %4[%5]")
                                 .arg(QString::number(line.id), describedNumber(line.oldLineNumber),
                                      describedNumber(line.newLineNumber), line.prefix, line.text));
                if ((line.kind == DiffLineKind::note) != line.prefix.isEmpty())
                    texts.append(QStringLiteral("kind and prefix disagree"));
            }
        }
        texts.append(QStringLiteral("+%1 -%2").arg(file.additions).arg(file.deletions));
    }
    return texts;
}

} // namespace kestor::testing
