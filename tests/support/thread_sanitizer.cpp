// Qt's libraries are built without the thread sanitizer, which would misread what happens in them. What stands here is
// called in place of the functions of the same names, by Qt as well, and tells it.

#include <QRunnable>
#include <QThreadPool>

#include <cstdarg>
#include <dlfcn.h>
#include <sanitizer/tsan_interface.h>
#include <sched.h>
#include <utility>

namespace {

/// The function that would be called without the one here.
template <typename Function>
Function *original(const char *symbol) {
    return reinterpret_cast<Function *>(::dlsym(RTLD_NEXT, symbol));
}

/// Work that a pool does after all that was done before it was handed over.
class HandedWork final : public QRunnable {
public:
    explicit HandedWork(QRunnable *runnable) : work(runnable) { __tsan_release(this); }
    void run() override {
        __tsan_acquire(this);
        const bool isOwned = work->autoDelete();
        work->run();
        if (isOwned)
            delete work;
    }

private:
    QRunnable *work;
};

} // namespace

void QThreadPool::start(QRunnable *runnable, int priority) {
    static auto *const start = original<void(QThreadPool *, QRunnable *, int)>("_ZN11QThreadPool5startEP9QRunnablei");
    start(this, new HandedWork(runnable), priority);
}

void QThreadPool::start(std::function<void()> work, int priority) {
    start(QRunnable::create(std::move(work)), priority);
}

/// QProcess starts children in its own memory, where the sanitizer would take the parent for the child and look away
/// from it ever after. They get a copy.
extern "C" int clone(int (*run)(void *), void *stack, int flags, void *argument, ...) {
    static auto *const clone = original<int(int (*)(void *), void *, int, void *, ...)>("clone");
    va_list more;
    va_start(more, argument);
    auto *const parentID = va_arg(more, void *);
    auto *const storage = va_arg(more, void *);
    auto *const childID = va_arg(more, void *);
    va_end(more);
    return clone(run, stack, flags & ~CLONE_VM, argument, parentID, storage, childID);
}
