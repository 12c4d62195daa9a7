#include <platform/shutdown/ShutdownManager.h>

#include <QSocketNotifier>

#include <platform/shutdown/TerminationSignals.h>

namespace QT {

ShutdownManager::ShutdownManager(QObject* aParent) : QObject(aParent) {}

ShutdownManager::~ShutdownManager()
{
    if (mNotifier)
        TerminationSignals::detach(TerminationSignals::Manager);
}

bool ShutdownManager::installEarly() { return TerminationSignals::install(); }

bool ShutdownManager::isRequested() { return TerminationSignals::isRequested(); }

bool ShutdownManager::initialize()
{
    if (mNotifier)
        return true;
    if (!TerminationSignals::attach(TerminationSignals::Manager))
        return false;
    mNotifier =
        std::make_unique<QSocketNotifier>(TerminationSignals::requestDescriptor(), QSocketNotifier::Read);
    connect(mNotifier.get(), &QSocketNotifier::activated, this, &ShutdownManager::onReadable);
    return true;
}

void ShutdownManager::onReadable()
{
    if (TerminationSignals::takeRequest())
        emit shutdownRequested();
}

} // namespace QT
