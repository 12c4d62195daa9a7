// The system calls that change a file system, in front of the C library's own: the program exports them, so
// that the libraries below it find these first.
#include "Medium.h"

#include <cerrno>
#include <cstdarg>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using Operation = Medium::Operation;

template <class Function>
static Function next(const char* aName)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, aName));
}

static Medium* mediumOf(const char* aPath)
{
    Medium* const medium = Medium::instance();
    return medium && medium->isBelow(aPath) ? medium : nullptr;
}

static Medium* mediumOf(int aDescriptor)
{
    Medium* const medium = Medium::instance();
    return medium && medium->isBelow(aDescriptor) ? medium : nullptr;
}

using OpenFunction = int (*)(const char*, int, ...);

static int openFile(OpenFunction aNext, const char* aPath, int aFlags, mode_t aMode)
{
    Medium* const medium = mediumOf(aPath);
    if (!medium)
        return aNext(aPath, aFlags, aMode);
    if (medium->isReadOnly() && (aFlags & O_ACCMODE) != O_RDONLY) {
        errno = EROFS;
        return -1;
    }
    struct stat64 status = {};
    const bool exists = ::stat64(aPath, &status) == 0;
    const auto call = [&] { return ssize_t(aNext(aPath, aFlags, aMode)); };
    const int descriptor =
        int((aFlags & O_CREAT) && !exists ? medium->perform({Operation::Create, -1, aPath}, call) : call());
    if (descriptor >= 0)
        medium->opened(descriptor, aPath, exists && S_ISDIR(status.st_mode));
    return descriptor;
}

static mode_t modeOf(int aFlags, va_list aArguments)
{
    return aFlags & (O_CREAT | O_TMPFILE) ? mode_t(va_arg(aArguments, int)) : 0;
}

static ssize_t writeFile(Medium& aMedium, int aDescriptor, const void* aBytes, size_t aCount, off64_t aOffset,
                         const std::function<ssize_t()>& aCall)
{
    const QByteArray bytes(static_cast<const char*>(aBytes), int(aCount));
    return aMedium.perform({Operation::Write, aDescriptor, {}, {}, aOffset, bytes}, aCall);
}

/** The medium that is simulated is enough; the real one would only take time. */
static int syncFile(Medium& aMedium, int aDescriptor)
{
    return int(aMedium.perform({Operation::Sync, aDescriptor}, [] { return 0; }));
}

extern "C" {

Q_DECL_EXPORT int open(const char* aPath, int aFlags, ...)
{
    static const auto sNext = next<OpenFunction>("open");
    va_list arguments;
    va_start(arguments, aFlags);
    const mode_t mode = modeOf(aFlags, arguments);
    va_end(arguments);
    return openFile(sNext, aPath, aFlags, mode);
}

Q_DECL_EXPORT int open64(const char* aPath, int aFlags, ...)
{
    static const auto sNext = next<OpenFunction>("open64");
    va_list arguments;
    va_start(arguments, aFlags);
    const mode_t mode = modeOf(aFlags, arguments);
    va_end(arguments);
    return openFile(sNext, aPath, aFlags, mode);
}

Q_DECL_EXPORT int close(int aDescriptor)
{
    static const auto sNext = next<int (*)(int)>("close");
    // Before the number is given to another file.
    if (Medium* const medium = mediumOf(aDescriptor))
        medium->closed(aDescriptor);
    return sNext(aDescriptor);
}

Q_DECL_EXPORT ssize_t write(int aDescriptor, const void* aBytes, size_t aCount)
{
    static const auto sNext = next<ssize_t (*)(int, const void*, size_t)>("write");
    const auto call = [=] { return sNext(aDescriptor, aBytes, aCount); };
    Medium* const medium = mediumOf(aDescriptor);
    const auto offset = [=] { return ::lseek64(aDescriptor, 0, SEEK_CUR); };
    return medium ? writeFile(*medium, aDescriptor, aBytes, aCount, offset(), call) : call();
}

Q_DECL_EXPORT ssize_t pwrite64(int aDescriptor, const void* aBytes, size_t aCount, off64_t aOffset)
{
    static const auto sNext = next<ssize_t (*)(int, const void*, size_t, off64_t)>("pwrite64");
    const auto call = [=] { return sNext(aDescriptor, aBytes, aCount, aOffset); };
    Medium* const medium = mediumOf(aDescriptor);
    return medium ? writeFile(*medium, aDescriptor, aBytes, aCount, aOffset, call) : call();
}

Q_DECL_EXPORT int ftruncate64(int aDescriptor, off64_t aLength) noexcept
{
    static const auto sNext = next<int (*)(int, off64_t)>("ftruncate64");
    const auto call = [=] { return sNext(aDescriptor, aLength); };
    Medium* const medium = mediumOf(aDescriptor);
    return int(medium ? medium->perform({Operation::Truncate, aDescriptor, {}, {}, aLength}, call) : call());
}

Q_DECL_EXPORT int fsync(int aDescriptor)
{
    static const auto sNext = next<int (*)(int)>("fsync");
    Medium* const medium = mediumOf(aDescriptor);
    return medium ? syncFile(*medium, aDescriptor) : sNext(aDescriptor);
}

Q_DECL_EXPORT int fdatasync(int aDescriptor)
{
    static const auto sNext = next<int (*)(int)>("fdatasync");
    Medium* const medium = mediumOf(aDescriptor);
    return medium ? syncFile(*medium, aDescriptor) : sNext(aDescriptor);
}

Q_DECL_EXPORT int unlink(const char* aPath) noexcept
{
    static const auto sNext = next<int (*)(const char*)>("unlink");
    const auto call = [=] { return sNext(aPath); };
    Medium* const medium = ::access(aPath, F_OK) == 0 ? mediumOf(aPath) : nullptr;
    return int(medium ? medium->perform({Operation::Remove, -1, aPath}, call) : call());
}

Q_DECL_EXPORT int rename(const char* aPath, const char* aNewPath) noexcept
{
    static const auto sNext = next<int (*)(const char*, const char*)>("rename");
    const auto call = [=] { return sNext(aPath, aNewPath); };
    Medium* const medium = mediumOf(aPath);
    return int(medium ? medium->perform({Operation::Rename, -1, aPath, aNewPath}, call) : call());
}

} // extern "C"
