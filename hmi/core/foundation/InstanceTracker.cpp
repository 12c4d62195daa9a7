#include <hmi/core/foundation/InstanceTracker.h>

#include <QCoreApplication>
#include <QThread>
#include <QVector>

namespace Hmi::Core {

static QVector<InstanceTracker*> sInstanceTrackers;

InstanceTracker::~InstanceTracker()
{
    if (!mOwnedByQml)
        delete getInstance();
}

void InstanceTracker::setInstance(QObject* aInstance)
{
    if (aInstance && !sInstanceTrackers.contains(this))
        sInstanceTrackers.append(this);
    mInstance.store(aInstance, std::memory_order_release);
}

void InstanceTracker::deleteInstancesCpp()
{
    // By index: a destructor may use, and so create, another singleton while the list is walked.
    for (int index = sInstanceTrackers.size() - 1; index >= 0; --index) {
        InstanceTracker* tracker = sInstanceTrackers.at(index);
        if (!tracker->mOwnedByQml)
            delete tracker->mInstance.exchange(nullptr, std::memory_order_acq_rel);
    }
}

void InstanceTracker::requireMainThread()
{
    const QCoreApplication* application = QCoreApplication::instance();
    if (!application || QThread::currentThread() != application->thread())
        qFatal("Singleton must be created on main thread");
}

} // namespace Hmi::Core
