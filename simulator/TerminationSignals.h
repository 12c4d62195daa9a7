#pragma once

#include <QObject>
#include <QSocketNotifier>

namespace Hmi::Simulator {

/**
 * SIGTERM and SIGINT as an event of the main loop. Made before the process has a second thread, since threads
 * inherit what is blocked; writing to a closed pipe fails from then on instead of ending the process.
 */
class TerminationSignals : public QObject
{
    Q_OBJECT

public:
    TerminationSignals();
    ~TerminationSignals() override;

signals:
    void received();

private:
    void onReadable();

    const int mDescriptor;
    QSocketNotifier mNotifier;
};

} // namespace Hmi::Simulator
