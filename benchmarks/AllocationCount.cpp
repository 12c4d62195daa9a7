#include "AllocationCount.h"

#include <QtGlobal>
#include <cstddef>

#ifdef HMI_COUNT_ALLOCATIONS

static thread_local long sCount = 0;

long allocationCount() { return sCount; }

// Takes the place of the C library's functions, for all libraries of the process.
extern "C" {

void* __libc_malloc(std::size_t aSize);
void* __libc_calloc(std::size_t aCount, std::size_t aSize);
void* __libc_realloc(void* aMemory, std::size_t aSize);

Q_DECL_EXPORT void* malloc(std::size_t aSize)
{
    ++sCount;
    return __libc_malloc(aSize);
}

Q_DECL_EXPORT void* calloc(std::size_t aCount, std::size_t aSize)
{
    ++sCount;
    return __libc_calloc(aCount, aSize);
}

Q_DECL_EXPORT void* realloc(void* aMemory, std::size_t aSize)
{
    ++sCount;
    return __libc_realloc(aMemory, aSize);
}
}

#else

long allocationCount() { return 0; }

#endif
