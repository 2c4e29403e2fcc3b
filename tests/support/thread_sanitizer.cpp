// Qt's libraries are built without the thread sanitizer, which would misread what happens in them. What stands here is
// called in place of the functions of the same names, by Qt as well, and tells it.

#include <QApplication>
#include <QFutureInterface>
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

/// Stands for the queue between those who post calls of slots and those who then make them.
char postedCalls;

} // namespace

/// Known to the sanitizer, which reads it as it starts: in a mapping the threads count themselves in Qt's library, and
/// the last one ends it. The arguments of a signal are copied for another thread after activate() below has told of it,
/// and reach that thread through Qt's own queue.
extern "C" const char *__tsan_default_suppressions() { // NOLINT(bugprone-reserved-identifier)
    return "race:QtConcurrent::ThreadEngine*asynchronousFinish\n"
           "race:QtPrivate::QMetaTypeForType*getCopyCtr\n";
}

void QThreadPool::start(QRunnable *runnable, int priority) {
    static auto *const start = original<void(QThreadPool *, QRunnable *, int)>("_ZN11QThreadPool5startEP9QRunnablei");
    start(this, new HandedWork(runnable), priority);
}

void QThreadPool::start(std::function<void()> work, int priority) {
    start(QRunnable::create(std::move(work)), priority);
}

/// Whoever lets go of a future last frees its results, after all that the others did with them.
bool QFutureInterfaceBase::derefT() const noexcept {
    static auto *const derefT = original<bool(const QFutureInterfaceBase *)>("_ZNK20QFutureInterfaceBase6derefTEv");
    const void *const results = &resultStoreBase();
    __tsan_release(const_cast<void *>(results));
    const bool isShared = derefT(this);
    if (!isShared)
        __tsan_acquire(const_cast<void *>(results));
    return isShared;
}

bool QMetaObject::invokeMethodImpl(QObject *object, QtPrivate::QSlotObjectBase *slot, Qt::ConnectionType type,
                                   void *result) {
    static auto *const invoke = original<bool(QObject *, QtPrivate::QSlotObjectBase *, Qt::ConnectionType, void *)>(
        "_ZN11QMetaObject16invokeMethodImplEP7QObjectPN9QtPrivate15QSlotObjectBaseEN2Qt14ConnectionTypeEPv");
    __tsan_release(&postedCalls);
    return invoke(object, slot, type, result);
}

void QMetaObject::activate(QObject *sender, const QMetaObject *metaObject, int signal, void **arguments) {
    static auto *const activate =
        original<void(QObject *, const QMetaObject *, int, void **)>("_ZN11QMetaObject8activateEP7QObjectPKS_iPPv");
    __tsan_release(&postedCalls);
    activate(sender, metaObject, signal, arguments);
}

bool QApplication::notify(QObject *receiver, QEvent *event) {
    static auto *const notify =
        original<bool(QApplication *, QObject *, QEvent *)>("_ZN12QApplication6notifyEP7QObjectP6QEvent");
    if (event->type() == QEvent::MetaCall)
        __tsan_acquire(&postedCalls);
    return notify(this, receiver, event);
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
