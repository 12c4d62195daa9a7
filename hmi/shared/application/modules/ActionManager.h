#pragma once

#include <QMap>
#include <QString>
#include <QVariantList>
#include <QVariantMap>
#include <functional>

#include <hmi/core/foundation/SingletonCppQml.h>

namespace Hmi::Shared {

/**
 * Actions by name, so that whoever wants something done (a button, a voice command, a hardware button) need
 * not know who does it:
 *
 *     ActionManager.invoke("dial", { number: "742-0662" }, button)
 *
 * Whoever carries an action out adds it and listens to actionTriggered(). Main thread only.
 */
class Q_DECL_EXPORT ActionManager : public Core::SingletonCppQml<ActionManager>
{
    Q_OBJECT
    Q_PROPERTY(QVariantList actions READ getActions NOTIFY actionsChanged)
    friend class Core::SingletonCppQml<ActionManager>;

public:
    /**
     * Asked before an enabled action is triggered, with the object that wants it (may be null). False forbids
     * it; the gate then tells the user itself.
     */
    using Gate = std::function<bool(const QString& aName, QObject* aSource)>;

    /** Without a gate every action is allowed. */
    explicit ActionManager(Gate aGate);

    /** Sorted by name, each with its "name" and whether it is "enabled". */
    QVariantList getActions() const;

    /** False, after a warning, when the name is empty or taken. */
    Q_INVOKABLE bool addAction(const QString& aName, bool aEnabled = true);

    /** An unknown action is ignored. */
    Q_INVOKABLE void removeAction(const QString& aName);

    /** False for an unknown action. */
    Q_INVOKABLE bool isEnabled(const QString& aName) const;

    /** False, after a warning, for an unknown action. */
    Q_INVOKABLE bool setEnabled(const QString& aName, bool aEnabled);

    /**
     * Triggers an action. False when nothing was triggered: the action is unknown or disabled (after a
     * warning) or the gate forbids it.
     */
    Q_INVOKABLE bool invoke(const QString& aName, const QVariantMap& aArguments = {},
                            QObject* aSource = nullptr);

signals:
    void actionTriggered(const QString& aName, const QVariantMap& aArguments);

    /** An action came, went, was enabled or was disabled. */
    void actionsChanged();

private:
    ActionManager(QQmlEngine* aEngine, QJSEngine* aScriptEngine);

    const Gate mGate;
    QMap<QString, bool> mEnabledByName;
};

} // namespace Hmi::Shared
