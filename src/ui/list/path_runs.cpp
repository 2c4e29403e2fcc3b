#include "ui/list/path_runs.h"

namespace kestor {

QList<TextRun> pathRuns(const ElidedPath &path, const ListFilter &filter) {
    const QString text = path.folder + path.name;
    const qsizetype nameStart = path.folder.size();
    QList<TextRun> runs;
    const auto append = [&](qsizetype from, qsizetype to, RunRole role) {
        if (from < to)
            runs += {text.sliced(from, to - from), role};
    };
    const auto appendPlain = [&](qsizetype from, qsizetype to) {
        append(from, qMin(to, nameStart), RunRole::folder);
        append(qMax(from, nameStart), to, RunRole::name);
    };
    qsizetype done = 0;
    for (const TextRange &match : filter.ranges(text)) {
        appendPlain(done, match.start);
        done = match.end();
        append(match.start, done, RunRole::match);
    }
    appendPlain(done, text.size());
    return runs;
}

} // namespace kestor
