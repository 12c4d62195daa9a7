#pragma once

#include <QPointer>

#include <hmi/core/foundation/SingletonCppQml.h>

namespace Hmi::Core {

/**
 * Keeps which item of the screen is highlighted, for HMIs that are operated by a rotary knob or keys. Items
 * bind their frame to it:
 *
 *     border.width: HighlightManager.currentItem === root ? 2 : 0
 *
 * The items stay their owners'; one that is deleted is no longer the current item. Main thread only.
 */
class Q_DECL_EXPORT HighlightManager : public SingletonCppQml<HighlightManager>
{
    Q_OBJECT
    Q_PROPERTY(bool enabled READ isEnabled WRITE setEnabled NOTIFY enabledChanged)
    Q_PROPERTY(QObject* currentItem READ getCurrentItem WRITE setCurrentItem NOTIFY currentItemChanged)
    friend class SingletonCppQml<HighlightManager>;

public:
    /** The instance of the application takes the initial switch from the configuration. */
    explicit HighlightManager(bool aEnabled);

    /** Whether anything is highlighted at all. */
    bool isEnabled() const { return mEnabled; }
    /** Switching off also clears the current item. */
    void setEnabled(bool aEnabled);

    /** The highlighted item, or null. */
    QObject* getCurrentItem() const { return mCurrentItem; }
    /** Silently ignored while the highlight is switched off. Null clears. */
    void setCurrentItem(QObject* aItem);

signals:
    void enabledChanged();
    void currentItemChanged();

private:
    HighlightManager(QQmlEngine* aEngine, QJSEngine* aScriptEngine);

    void replaceItem(QObject* aItem);

    bool mEnabled;
    QPointer<QObject> mCurrentItem;
};

} // namespace Hmi::Core
