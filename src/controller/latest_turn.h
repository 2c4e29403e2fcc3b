#pragma once

#include "tools/completion.h"

#include <QCoroTask>
#include <QtGlobal>

#include <memory>
#include <utility>

namespace kestor {

/// Keeps walking through a list by keyboard from starting a tool for every row on the way: only a few loads run at a
/// time, and of those that wait only the latest ever needs to run. Main thread only.
class LatestTurn {
public:
    explicit LatestTurn(int most) : mostAtOnce(most) {}

    /// Counts as running as long as it lives.
    class Scope {
    public:
        explicit Scope(LatestTurn &turns) : owner(turns) { ++owner.running; }
        ~Scope() {
            --owner.running;
            endWait(owner.waiting);
        }
        Q_DISABLE_COPY_MOVE(Scope)

    private:
        LatestTurn &owner;
    };

    /// Waits while too many run. Ends as well when a later one begins to wait: whoever is not the latest any more has
    /// to find that out and give up.
    QCoro::Task<> wait() {
        if (running < mostAtOnce)
            co_return;
        const auto turn = std::make_shared<Completion>();
        std::shared_ptr<Completion> older = std::exchange(waiting, turn);
        endWait(older);
        co_await *turn;
    }

private:
    static void endWait(std::shared_ptr<Completion> &turn) {
        if (const std::shared_ptr<Completion> ended = std::exchange(turn, nullptr))
            ended->complete();
    }

    const int mostAtOnce;
    int running = 0;
    std::shared_ptr<Completion> waiting{};
};

} // namespace kestor
