#pragma once

#include <QString>
#include <QVector>
#include <array>
#include <atomic>
#include <cstdint>

namespace Metron {

/** One performance event as read back from the ring. */
struct Event
{
    std::int64_t nanoseconds; ///< CLOCK_MONOTONIC, nanoseconds
    QString name;
    int thread; ///< the kernel's id of the thread that raised it
};

/**
 * The process's latest performance events, in a ring of fixed size: raising an event allocates nothing, takes
 * no lock and may happen on any thread. When the ring is full the oldest event is overwritten.
 *
 * Names are kept as UTF-16, cut after MaximumNameLength code units.
 */
class Q_DECL_EXPORT EventRing
{
public:
    static constexpr int Capacity = 512;
    static constexpr int MaximumNameLength = 62;

    /** Records the event with the present time. */
    void raise(const QString& aName) noexcept;

    /** How many events were raised so far; the next one has this position. */
    std::uint32_t position() const noexcept { return mNext.load(std::memory_order_acquire); }

    /**
     * The recorded events from a position on, oldest first. To be read while no other thread raises events;
     * one that is being written at that moment is left out.
     */
    QVector<Event> events(std::uint32_t aFrom = 0) const;

private:
    struct Slot
    {
        std::atomic<std::uint32_t> written{
            0}; ///< 1 + the event's sequence number once it is complete, else 0
        std::int64_t nanoseconds = 0;
        int thread = 0;
        int length = 0;
        std::array<char16_t, MaximumNameLength> name{};
    };

    std::array<Slot, Capacity> mSlots;
    std::atomic<std::uint32_t> mNext{0};
};

} // namespace Metron
