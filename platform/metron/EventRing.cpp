#include <platform/metron/EventRing.h>

#include <algorithm>
#include <chrono>
#include <sys/syscall.h>
#include <unistd.h>

namespace Metron {

static std::int64_t monotonicNanoseconds() noexcept
{
    using namespace std::chrono;
    return duration_cast<nanoseconds>(steady_clock::now().time_since_epoch()).count();
}

static int threadId() noexcept
{
    static thread_local const int sId = static_cast<int>(syscall(SYS_gettid));
    return sId;
}

void EventRing::raise(const QString& aName) noexcept
{
    const std::uint32_t sequence = mNext.fetch_add(1, std::memory_order_relaxed);
    Slot& slot = mSlots[sequence % Capacity];
    slot.written.store(0, std::memory_order_relaxed);
    slot.nanoseconds = monotonicNanoseconds();
    slot.thread = threadId();
    slot.length = std::min(aName.size(), MaximumNameLength);
    std::copy_n(reinterpret_cast<const char16_t*>(aName.utf16()), slot.length, slot.name.begin());
    slot.written.store(sequence + 1, std::memory_order_release);
}

QVector<Event> EventRing::events(std::uint32_t aFrom) const
{
    const std::uint32_t end = position();
    const std::uint32_t begin = std::max(aFrom, end > Capacity ? end - Capacity : 0);
    QVector<Event> result;
    result.reserve(static_cast<int>(end - begin));
    for (std::uint32_t sequence = begin; sequence != end; ++sequence) {
        const Slot& slot = mSlots[sequence % Capacity];
        if (slot.written.load(std::memory_order_acquire) == sequence + 1)
            result.append({slot.nanoseconds, QString::fromUtf16(slot.name.data(), slot.length), slot.thread});
    }
    return result;
}

} // namespace Metron
