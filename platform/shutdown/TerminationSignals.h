#pragma once

#include <initializer_list>

namespace QT {

/**
 * SIGTERM and SIGINT of the process. The first one that comes is the request to end and makes
 * requestDescriptor() readable; what a further one does depends on who uses the signals then:
 *
 * - a ShutdownWatch: it gets it from waitForFurther();
 * - a ShutdownManager, but no watch: nothing, it is the same request;
 * - neither: it ends the process, with a line on standard error and status 128 + signal.
 *
 * No signal is blocked, in any thread, so that children inherit nothing and die from both by default; one
 * that was forked and runs no other program yet does so, too. The two pipes that carry signals out of the
 * handler are closed in children, and in this process never: the handler may still be running in some thread.
 *
 * Main thread only, if not said otherwise.
 */
class TerminationSignals
{
public:
    enum User { Manager = 1, Watch = 2 };

    /** Installs the handlers, if they are not. False, with nothing changed, without two free pipes. */
    static bool install();

    /** As install(), for a user. False also when there is one of the kind already. */
    static bool attach(User aUser);
    /** With the last user the handlers that were there before install() come back, unless somebody has
     * installed others meanwhile. */
    static void detach(User aUser);

    /** Since the last install(). Any thread. */
    static bool isRequested();
    static int requestDescriptor();
    /** Whether there was a request that was not taken yet. */
    static bool takeRequest();

    /** The next further signal; 0 for a wakeWatch(), and negative when the time (negative: no limit) is over.
     * For the watch's thread. */
    static int waitForFurther(int aMilliseconds);
    static void wakeWatch();

    static const char* nameOf(int aSignal);
    /** To standard error, as a whole or, when nobody empties that, not at all. At most 511 bytes. Takes no
     * lock and never waits, so it may be used by handlers. */
    static void writeLine(std::initializer_list<const char*> aPieces);
};

} // namespace QT
