#pragma once

#include <QList>
#include <QtGlobal>

#include <utility>

namespace kestor {

/// Work in progress that a coroutine waits for.
class Stoppable {
public:
    virtual ~Stoppable() = default;
    /// Asks the work to end and returns at once.
    virtual void askToEnd() = 0;
    /// Resumes who waits for the work, who may destroy this object. It was asked to end before.
    virtual void endWait() = 0;
};

/// The work in progress of one client, to be stopped when the client closes. One thread only.
class Running {
public:
    /// Keeps a piece of work in the list for as long as it lives.
    class Entry {
    public:
        Entry(Running &running, Stoppable *work) : list(running.works), member(work) { list.append(member); }
        ~Entry() { list.removeOne(member); }
        Q_DISABLE_COPY_MOVE(Entry)

    private:
        QList<Stoppable *> &list;
        Stoppable *member;
    };

    Running() = default;
    ~Running() { stop(); }
    Q_DISABLE_COPY_MOVE(Running)

    /// Stops all there is; nothing may be started afterwards.
    void stop() {
        stopped = true;
        // All at the same time: who waits for the first one's end needs not wait for that of the others again.
        for (Stoppable *work : std::as_const(works))
            work->askToEnd();
        while (!works.isEmpty())
            works.takeFirst()->endWait();
    }
    bool isStopped() const { return stopped; }

private:
    QList<Stoppable *> works;
    bool stopped = false;
};

} // namespace kestor
