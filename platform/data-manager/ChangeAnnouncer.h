#pragma once

#include <QString>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <set>
#include <thread>
#include <utility>
#include <vector>

class QDBusConnection;
class QDBusMessage;

namespace DataManager {

/**
 * Tells other processes what this one changed, from a thread of its own. What is announced while the bus is
 * absent is announced when it returns; the same change waits only once.
 */
class ChangeAnnouncer
{
public:
    /** A setting's type, as in ChangeBus, and id. */
    using Setting = std::pair<int, QString>;

    ChangeAnnouncer();
    ~ChangeAnnouncer();
    Q_DISABLE_COPY(ChangeAnnouncer)

    /** Any thread; takes less than a microsecond when others wait already. */
    void announceSetting(int aType, const QString& aId);
    void announceSettings(const std::vector<Setting>& aSettings);
    void announceProfile(const QString& aName);

    /** Under which this process's announcements are on the bus; empty while that is absent. Any thread. */
    static QString busName();

private:
    void run();
    void wake();
    bool isNothingNew() const { return mSettings.empty() && mProfile.isEmpty(); }
    bool isWaiting() const { return !mWaitingSettings.empty() || !mWaitingProfile.isEmpty(); }
    void gather();
    bool send();

    // Between the threads.
    std::mutex mMutex;
    std::condition_variable mWake;
    std::vector<Setting> mSettings;
    QString mProfile; ///< empty: not changed
    std::atomic<bool> mIdle{false};
    bool mStopping = false;

    // Of the announcing thread: what is to be sent, each once.
    std::set<Setting> mWaitingSettings;
    QString mWaitingProfile;

    std::thread mThread;
};

} // namespace DataManager
