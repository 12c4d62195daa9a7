#include "FlushCount.h"

#include <QtGlobal>
#include <sys/syscall.h>
#include <sys/types.h>
#include <unistd.h>

static thread_local long sCount = 0;

long flushCount() { return sCount; }

template <class... Arguments>
static int flush(long aCall, Arguments... aArguments)
{
    ++sCount;
    return static_cast<int>(::syscall(aCall, aArguments...));
}

// Takes the place of the C library's functions, for all libraries of the process.
extern "C" {

Q_DECL_EXPORT int fsync(int aFile) { return flush(SYS_fsync, aFile); }

Q_DECL_EXPORT int fdatasync(int aFile) { return flush(SYS_fdatasync, aFile); }

Q_DECL_EXPORT int sync_file_range(int aFile, off64_t aFrom, off64_t aBytes, unsigned int aHow)
{
    return flush(SYS_sync_file_range, aFile, aFrom, aBytes, aHow);
}
}
