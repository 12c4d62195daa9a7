#include <hmi/shared/application/modules/ActionManager.h>

#include <utility>

#include <hmi/core/view/RestrictedModeManager.h>

namespace Hmi::Shared {

ActionManager::ActionManager(Gate aGate) : mGate(std::move(aGate)) {}

ActionManager::ActionManager(QQmlEngine*, QJSEngine*) :
    ActionManager([](const QString& aName, QObject* aSource) {
        return Core::RestrictedModeManager::instance()->requestAction(aName, aSource);
    })
{}

QVariantList ActionManager::getActions() const
{
    QVariantList actions;
    for (auto action = mEnabledByName.cbegin(); action != mEnabledByName.cend(); ++action)
        actions.append(
            QVariantMap{{QStringLiteral("name"), action.key()}, {QStringLiteral("enabled"), action.value()}});
    return actions;
}

bool ActionManager::addAction(const QString& aName, bool aEnabled)
{
    if (aName.isEmpty() || mEnabledByName.contains(aName)) {
        qWarning("The action name \"%s\" is empty or taken; the action is not added.", qPrintable(aName));
        return false;
    }
    mEnabledByName.insert(aName, aEnabled);
    emit actionsChanged();
    return true;
}

void ActionManager::removeAction(const QString& aName)
{
    if (mEnabledByName.remove(aName) > 0)
        emit actionsChanged();
}

bool ActionManager::isEnabled(const QString& aName) const { return mEnabledByName.value(aName, false); }

bool ActionManager::setEnabled(const QString& aName, bool aEnabled)
{
    const auto action = mEnabledByName.find(aName);
    if (action == mEnabledByName.end()) {
        qWarning("There is no action \"%s\" to enable or disable.", qPrintable(aName));
        return false;
    }
    if (*action != aEnabled) {
        *action = aEnabled;
        emit actionsChanged();
    }
    return true;
}

bool ActionManager::invoke(const QString& aName, const QVariantMap& aArguments, QObject* aSource)
{
    const auto action = mEnabledByName.constFind(aName);
    if (action == mEnabledByName.cend() || !*action) {
        qWarning("The action \"%s\" is %s; it is not triggered.", qPrintable(aName),
                 action == mEnabledByName.cend() ? "unknown" : "disabled");
        return false;
    }
    if (mGate && !mGate(aName, aSource))
        return false;
    emit actionTriggered(aName, aArguments);
    return true;
}

} // namespace Hmi::Shared
