#pragma once

#include <string>

enum class SignalPace {
    Single,  ///< as fast as it goes, each by itself
    Batches, ///< as fast as it goes, as many as fit 64 KiB at a time
    Paced    ///< a thousand a second
};

/**
 * The values of one run. In a flood the first is the time of its start, and each further one is greater by 1;
 * paced, each is the time at which it was taken.
 */
class SignalSource
{
public:
    SignalSource(SignalPace aPace, int aCount) : pace(aPace), mLeft(aCount) {}

    /** Waits for the value's time, if it is paced. False after the last. */
    bool next(double& aValue);
    bool isLast() const { return mLeft == 0; }

    const SignalPace pace;

private:
    int mLeft;
    double mPrevious = 0;
};

// Each waits for a reader, writes, and returns when the reader has left. "ready" is printed before.

/** A Unix socket at the address, with one write(2) for each value or batch. */
void writeToSocket(const std::string& aAddress, SignalSource& aSource);
/** A stream of gRPC on a Unix socket at the address; batches are its buffer hint. */
void writeToGrpc(const std::string& aAddress, SignalSource& aSource);
/** Signals on the session bus. */
void writeToDBus(const std::string& aAddress, SignalSource& aSource);

/**
 * A service that goes away and returns, so often. Prints for each return the milliseconds from listening to
 * the last of many subscriptions.
 */
void serveReconnections(const std::string& aAddress, int aCount);

void printReady();
