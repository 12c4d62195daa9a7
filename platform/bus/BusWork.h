#pragma once

#include <QtGlobal>
#include <functional>
#include <memory>

namespace Bus {

class WorkThread;

/**
 * Carries out what would make its caller wait for the bus (to connect to it, to build a service's client, to
 * connect and disconnect signals) on one thread of the process that all users share, each piece after all
 * that were added before it by whomever. Qt's bus connections may be used on any thread; they deliver signals
 * to a receiver on the thread where that lives.
 *
 * What a piece uses must be there until it was carried out. The owner of both waits for that before the
 * first of it goes: in its destructor, or by having this as its last member. A bus that does not answer makes
 * that wait as long as a call waits. The end of the application waits for all that was added. A piece never
 * waits for the thread that owns this. Main thread only.
 */
class Q_DECL_EXPORT BusWork
{
public:
    BusWork();
    /** After finish(). */
    ~BusWork();
    BusWork(const BusWork&) = delete;
    BusWork& operator=(const BusWork&) = delete;

    void add(std::function<void()> aPiece);
    /** Waits until everything that was added here is carried out. */
    void finish();

private:
    const std::shared_ptr<WorkThread> mThread;
    unsigned long long mLast = 0; ///< the number of the latest piece
};

} // namespace Bus
