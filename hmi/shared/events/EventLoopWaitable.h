#pragma once

#include <QObject>

namespace Hmi::Shared {

/**
 * Remembers for an EventLoop whether one of the signals that it waits for has arrived. Created and owned by
 * the loop, for one run.
 */
class Q_DECL_EXPORT EventLoopWaitable : public QObject
{
    Q_OBJECT
public:
    explicit EventLoopWaitable(QObject* aParent = nullptr);

    bool isEventReceived() const { return mEventReceived; }

public slots:
    /** Emits done() on the first call; later calls do nothing. */
    void handleEvent();

signals:
    void done();

private:
    bool mEventReceived = false;
};

} // namespace Hmi::Shared
