#pragma once

#include <QtGlobal>

namespace kestor {

/// Counts the operations under way, so that their owner can wait for the last one before it goes away.
class RunningOperations {
public:
    /// Counts itself as long as it lives.
    class Scope {
    public:
        explicit Scope(RunningOperations &running) : operations(running) { ++operations.count; }
        ~Scope() { --operations.count; }
        Q_DISABLE_COPY_MOVE(Scope)

    private:
        RunningOperations &operations;
    };

    bool isIdle() const { return count == 0; }

private:
    int count = 0;
};

} // namespace kestor
