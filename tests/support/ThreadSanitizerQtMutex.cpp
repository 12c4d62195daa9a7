#include <QMutex>
#include <dlfcn.h>
#include <sanitizer/tsan_interface.h>

/**
 * ThreadSanitizer does not see what Qt's libraries do, as they are not built with it: their mutex would seem
 * to order nothing. The functions here take the place of Qt's in the whole process, call them, and tell the
 * sanitizer.
 *
 * Bare QBasicMutex needs nothing: its uncontended path is inline and so is seen, and its contended one is
 * told here.
 */
namespace {

template <class Function>
Function findNext(const char* aSymbol)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, aSymbol));
}

} // namespace

/**
 * Memory that Qt's libraries allocate in one thread and free in another, as they do for events between
 * threads: what orders that is inside of them, unseen as well.
 */
extern "C" Q_DECL_EXPORT const char* __tsan_default_options() { return "ignore_noninstrumented_modules=1"; }

void QMutex::lock() QT_MUTEX_LOCK_NOEXCEPT
{
    static const auto sNext = findNext<void (*)(QMutex*)>("_ZN6QMutex4lockEv");
    sNext(this);
    __tsan_acquire(this);
}

void QMutex::unlock() noexcept
{
    static const auto sNext = findNext<void (*)(QMutex*)>("_ZN6QMutex6unlockEv");
    __tsan_release(this);
    sNext(this);
}

void QBasicMutex::lockInternal() QT_MUTEX_LOCK_NOEXCEPT
{
    static const auto sNext = findNext<void (*)(QBasicMutex*)>("_ZN11QBasicMutex12lockInternalEv");
    sNext(this);
    __tsan_acquire(this);
}

void QBasicMutex::unlockInternal() noexcept
{
    static const auto sNext = findNext<void (*)(QBasicMutex*)>("_ZN11QBasicMutex14unlockInternalEv");
    __tsan_release(this);
    sNext(this);
}
