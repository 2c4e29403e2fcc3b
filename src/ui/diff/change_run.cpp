#include "ui/diff/change_run.h"

#include "analysis/word_marks.h"

namespace kestor {

namespace {

/// Walks over the lines of a hunk.
class HunkWalk {
public:
    HunkWalk(const DiffHunk &walkedHunk, qint64 from) : hunk(walkedHunk), line(from) {}

    bool isInside() const { return line >= hunk.firstLine && line < hunk.firstLine + hunk.lineCount; }
    DiffLineKind kind() const { return hunk.source->lines[static_cast<std::size_t>(line)].kind; }

    /// Goes back over lines of the kind, and notes.
    void goBack(DiffLineKind wanted) {
        for (std::size_t steps = 0; isInside() && steps <= longestComparedRun && isOneOf(wanted); ++steps)
            --line;
    }
    /// The lines of the kind from here on, notes left out; at most one more than a run may have.
    std::vector<qint64> take(DiffLineKind wanted) {
        std::vector<qint64> lines;
        for (; isInside() && lines.size() <= longestComparedRun && isOneOf(wanted); ++line) {
            if (kind() == wanted)
                lines.push_back(line);
        }
        return lines;
    }
    void step() { ++line; }

private:
    bool isOneOf(DiffLineKind wanted) const { return kind() == wanted || kind() == DiffLineKind::note; }

    const DiffHunk &hunk;
    qint64 line;
};

} // namespace

std::optional<ChangeRun> changeRunAt(const DiffHunk &hunk, qint64 line) {
    HunkWalk walk(hunk, line);
    if (walk.kind() != DiffLineKind::addition && walk.kind() != DiffLineKind::deletion)
        return std::nullopt;
    if (walk.kind() == DiffLineKind::addition)
        walk.goBack(DiffLineKind::addition);
    walk.goBack(DiffLineKind::deletion);
    walk.step();
    ChangeRun run;
    run.removed = walk.take(DiffLineKind::deletion);
    run.added = walk.take(DiffLineKind::addition);
    if (run.removed.empty() || run.added.empty() || run.removed.size() + run.added.size() > longestComparedRun)
        return std::nullopt;
    return run;
}

} // namespace kestor
