#pragma once

#include <QObject>
#include <atomic>

namespace Hmi::Core {

/**
 * Remembers the one instance of a singleton class, so that the application can delete every natively owned
 * singleton in a controlled order at shutdown.
 *
 * A tracker is a static of its singleton class (SingletonCpp, SingletonCppQml) and lives as long as the
 * process. The instance may be read from any thread; everything else happens on the main thread, except that
 * a QML engine may publish an instance under the class's creation lock.
 *
 * Ownership: an instance belongs to its tracker until it is handed to a QML engine, which then deletes it.
 */
class Q_DECL_EXPORT InstanceTracker
{
public:
    constexpr InstanceTracker() noexcept = default;
    Q_DISABLE_COPY_MOVE(InstanceTracker)

    /** Deletes the instance at process exit when it is still held and no QML engine owns it. */
    ~InstanceTracker();

    /** The instance, or null. Lock-free; an acquire load, so that the object is seen complete. */
    QObject* getInstance() const noexcept { return mInstance.load(std::memory_order_acquire); }

    /**
     * Publishes the instance with a release store. The first object of a tracker also fixes the tracker's
     * place in the order of deletion; null only clears the pointer.
     */
    void setInstance(QObject* aInstance);

    /** Whether a QML engine deletes the instance; such an instance is left alone here. */
    void setOwnedByQml(bool aOwnedByQml) noexcept { mOwnedByQml = aOwnedByQml; }

    /**
     * Deletes every natively owned singleton, the last created first. Main thread only. A singleton that is
     * used again afterwards is created afresh.
     */
    static void deleteInstancesCpp();

    /**
     * Stops the process with "Singleton must be created on main thread" unless a QCoreApplication exists and
     * the calling thread is its thread.
     */
    static void requireMainThread();

private:
    std::atomic<QObject*> mInstance{nullptr};
    bool mOwnedByQml = false;
};

} // namespace Hmi::Core
