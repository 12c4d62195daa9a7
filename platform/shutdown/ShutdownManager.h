#pragma once

#include <QObject>
#include <memory>

class QSocketNotifier;

namespace QT {

/**
 * Turns SIGTERM and SIGINT into one request to shut down, for the process's application, which owns it. Main
 * thread only; one at a time.
 *
 * While a manager is initialised, neither signal ends the process: the first one is the request and further
 * ones are part of it. Once the shutdown runs, a ShutdownWatch lets a further signal end a process that is
 * stuck. Children started meanwhile inherit none of this.
 */
class Q_DECL_EXPORT ShutdownManager : public QObject
{
    Q_OBJECT

public:
    explicit ShutdownManager(QObject* aParent = nullptr);
    /** Puts back the handlers that were there before initialize() or installEarly(); while there is a
     * ShutdownWatch, that will do it. May be called from a slot of shutdownRequested(). */
    ~ShutdownManager() override;

    /**
     * For the beginning of the start-up: from now on the first signal is remembered until a manager is
     * initialised. A second one before that ends the process at once, with status 128 + signal and one line
     * on standard error. Without a manager to come that stays so until the process ends. False, with nothing
     * changed, when there is no free file descriptor.
     */
    static bool installEarly();

    /** Whether one of the signals came since installEarly() or initialize(), whichever was first. Stays so
     * when the manager is deleted. Any thread. */
    static bool isRequested();

    /** False, with nothing changed, when there is no free file descriptor or another manager. */
    bool initialize();

signals:
    /** Once, from the event loop; also for a signal that came before initialize(). */
    void shutdownRequested();

private:
    void onReadable();

    std::unique_ptr<QSocketNotifier> mNotifier;
};

} // namespace QT
