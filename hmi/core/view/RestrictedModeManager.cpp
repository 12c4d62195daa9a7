#include <hmi/core/view/RestrictedModeManager.h>

#include <hmi/core/view/RestrictedModePolicy.h>

namespace Hmi::Core {

RestrictedModeManager::RestrictedModeManager(QQmlEngine*, QJSEngine*) {}

RestrictedModeManager::~RestrictedModeManager()
{
    if (mPolicy) {
        disconnect(mPolicy.data(), nullptr, this, nullptr);
        mPolicy->stop();
    }
}

void RestrictedModeManager::setPolicy(RestrictedModePolicy* aPolicy)
{
    if (aPolicy && aPolicy == mPolicy)
        return;
    if (mPolicy) {
        disconnect(mPolicy.data(), nullptr, this, nullptr);
        mPolicy->stop();
    }
    mPolicy = aPolicy;
    if (mPolicy) {
        connect(aPolicy, &RestrictedModePolicy::modeChanged, this, &RestrictedModeManager::followPolicy);
        mPolicy->start();
    }
    followPolicy();
}

void RestrictedModeManager::followPolicy()
{
    const bool on = mPolicy && mPolicy->isRestrictedModeOn();
    if (on == mLastMode)
        return;
    mLastMode = on;
    emit modeChanged(on);
}

bool RestrictedModeManager::isRestrictedModeOn() const
{
    return mPolicy ? mPolicy->isRestrictedModeOn() : mLastMode;
}

QStringList RestrictedModeManager::getRestrictedActions() const { return mRestrictions.keys(); }

void RestrictedModeManager::restrictAction(const QString& aAction, int aCategory, int aMessage)
{
    const bool added = !mRestrictions.contains(aAction);
    mRestrictions.insert(aAction, {aCategory, aMessage});
    if (added)
        emit restrictedActionsChanged();
}

void RestrictedModeManager::releaseAction(const QString& aAction)
{
    if (mRestrictions.remove(aAction) > 0)
        emit restrictedActionsChanged();
}

bool RestrictedModeManager::isActionAllowed(const QString& aAction) const
{
    return !isRestrictedModeOn() || !mRestrictions.contains(aAction);
}

bool RestrictedModeManager::requestAction(const QString& aAction, QObject* aSource)
{
    if (isActionAllowed(aAction))
        return true;
    const Restriction restriction = mRestrictions.value(aAction);
    emit actionRestricted(restriction.category, restriction.message, aSource, aAction);
    return false;
}

} // namespace Hmi::Core
