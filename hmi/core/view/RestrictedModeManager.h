#pragma once

#include <QMap>
#include <QPointer>
#include <QString>
#include <QStringList>

#include <hmi/core/foundation/SingletonCppQml.h>

namespace Hmi::Core {

class RestrictedModePolicy;

/**
 * Tells the screens whether restricted mode is on, and refuses the actions that it forbids. The mode comes
 * from the installed policy; without one it is off. Which actions are forbidden is the product's list.
 *
 *     if (!RestrictedModeManager.requestAction("enterDestination", page)) return
 *
 * An action that is not listed is always allowed, and outside restricted mode everything is. Main thread
 * only.
 */
class Q_DECL_EXPORT RestrictedModeManager : public SingletonCppQml<RestrictedModeManager>
{
    Q_OBJECT
    Q_PROPERTY(bool restrictedModeOn READ isRestrictedModeOn NOTIFY modeChanged)
    Q_PROPERTY(QStringList restrictedActions READ getRestrictedActions NOTIFY restrictedActionsChanged)
    friend class SingletonCppQml<RestrictedModeManager>;

public:
    RestrictedModeManager() = default;
    ~RestrictedModeManager() override;

    /**
     * Stops the policy installed before and starts this one; null removes the policy, which ends restricted
     * mode. The policy stays the caller's. When it is destroyed while installed, the last mode is kept: a
     * restriction is never lifted by accident.
     */
    void setPolicy(RestrictedModePolicy* aPolicy);

    bool isRestrictedModeOn() const;

    /** Sorted by name. */
    QStringList getRestrictedActions() const;

    /**
     * Puts an action on the list of what restricted mode forbids. Category and message are the product's own
     * numbers: actionRestricted() passes them to the screen that shows the refusal. Listing an action again
     * replaces its numbers.
     */
    Q_INVOKABLE void restrictAction(const QString& aAction, int aCategory = 0, int aMessage = 0);

    /** Takes an action off the list; one that is not listed is ignored. */
    Q_INVOKABLE void releaseAction(const QString& aAction);

    /** Asks without reporting, for example to grey out a button. */
    Q_INVOKABLE bool isActionAllowed(const QString& aAction) const;

    /**
     * Asks on behalf of an action about to happen; a refusal is reported through actionRestricted(). The
     * source is the object that wanted it, or null.
     */
    Q_INVOKABLE bool requestAction(const QString& aAction, QObject* aSource = nullptr);

signals:
    /** Only for real changes: a policy that repeats its mode causes no signal here. */
    void modeChanged(bool aRestrictedModeOn);

    /** An action was refused, once per refused request. */
    void actionRestricted(int aCategory, int aMessage, QObject* aSource, const QString& aAction);

    void restrictedActionsChanged();

private:
    struct Restriction
    {
        int category = 0;
        int message = 0;
    };

    RestrictedModeManager(QQmlEngine* aEngine, QJSEngine* aScriptEngine);

    void followPolicy();

    QPointer<RestrictedModePolicy> mPolicy;
    bool mLastMode = false;
    QMap<QString, Restriction> mRestrictions;
};

} // namespace Hmi::Core
