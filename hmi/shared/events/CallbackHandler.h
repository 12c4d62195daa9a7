#pragma once

#include <QMutex>
#include <QObject>
#include <functional>
#include <vector>

namespace Hmi::Shared {

/**
 * Defers work until a point that is reached once, for example the end of start-up: callbacks are collected
 * until handleCallbacks(), afterwards each runs as soon as it is added. There is no way back.
 *
 * Callbacks may be added from any thread. Every callback runs exactly once, on the thread that handles or
 * adds it, one at a time under the handler's mutex. A callback must therefore neither add another one to the
 * same handler nor call handleCallbacks() - that blocks for ever - nor delete the handler. Callbacks that are
 * still waiting when the handler is deleted never run.
 */
class Q_DECL_EXPORT CallbackHandler : public QObject
{
    Q_OBJECT
public:
    using Callback = std::function<void()>;

    explicit CallbackHandler(QObject* aParent = nullptr);

    /** Collects the callback, or runs it now when the callbacks have been handled. An empty one is ignored.
     */
    void addCallback(Callback aCallback);

public slots:
    /** Runs the collected callbacks in the order they were added. A second call finds none. */
    void handleCallbacks();

private:
    std::vector<Callback> mCallbacks;
    bool mHandled = false;
    QMutex mMutex; ///< guards both, and is held while callbacks run
};

} // namespace Hmi::Shared
