#include "Findings.h"

#include <QDir>
#include <algorithm>
#include <cstdio>
#include <malloc.h>

#include <benchmarks/PrivateMemory.h>

/** In kilobytes; without caches and arenas of threads, as scripts/faults has it. */
static constexpr long MemorySlack = 128;

static int openDescriptors()
{
    return QDir(QStringLiteral("/proc/self/fd"))
        .entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System)
        .size();
}

void Findings::expect(bool aFulfilled, const std::string& aWhat)
{
    if (aFulfilled)
        return;
    ++mHarms;
    std::printf("HARM in %s: %s\n", mCycle.c_str(), aWhat.c_str());
    std::fflush(stdout);
}

void Findings::judge(Duration& aDuration, double aMilliseconds, const std::string& aOf)
{
    aDuration.longest = std::max(aDuration.longest, aMilliseconds);
    if (aMilliseconds <= aDuration.bound)
        return;
    char text[200];
    std::snprintf(text, sizeof text, "%s: %.1f ms %s", aDuration.what, aMilliseconds, aOf.c_str());
    expect(false, text);
}

void Findings::judgeProcess()
{
    ::malloc_trim(0);
    mMemory = privateKilobytes();
    mDescriptors = openDescriptors();
    if (mFirstMemory == 0) {
        mFirstMemory = mMemory;
        mFirstDescriptors = mDescriptors;
    }
    expect(mMemory <= mFirstMemory + MemorySlack, "the memory grew");
    expect(mDescriptors <= mFirstDescriptors, "there are more descriptors");
}

void Findings::print() const
{
    for (const Duration& duration : {asynchronous, restOfMessage, answered, cutOff, unanswered, subscribed})
        std::printf("%-58s %7.1f ms, at most %.0f\n", duration.what, duration.longest, duration.bound);
    std::printf("%-58s %7ld kB, %ld at first\n", "private memory", mMemory, mFirstMemory);
    std::printf("%-58s %7d, %d at first\n", "descriptors", mDescriptors, mFirstDescriptors);
    std::printf("%d harms\n", mHarms);
}
