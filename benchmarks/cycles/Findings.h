#pragma once

#include <string>

/** What the cycles showed: the greatest of each figure, and a line on standard output for each harm. */
class Findings
{
public:
    /** Milliseconds, with the longest that is no harm. */
    struct Duration
    {
        const char* what;
        double bound;
        double longest = 0;
    };

    /** In what the harms from now on happen. */
    void begin(const std::string& aCycle) { mCycle = aCycle; }
    void judge(Duration& aDuration, double aMilliseconds, const std::string& aOf = {});
    void expect(bool aFulfilled, const std::string& aWhat);
    /** Kilobytes and descriptors, as they are now; the first time is what they are compared with. */
    void judgeProcess();

    int getHarms() const { return mHarms; }
    void print() const;

    Duration asynchronous{"the GUI thread was held", 50};
    /** TransportProxy gives the rest of a message 250 ms. */
    Duration restOfMessage{"the GUI thread waited for the rest of a message", 250 + 50};
    Duration answered{"a call that waits, while the service answers or is gone", 50};
    Duration cutOff{"a call that waits, with the service killed after 100 ms", 150};
    /** Two seconds. */
    Duration unanswered{"a call that waits, while the service hangs", 2000 + 50};
    Duration subscribed{"everything was subscribed again", 1500};

private:
    std::string mCycle;
    int mHarms = 0;
    long mFirstMemory = 0;
    long mMemory = 0;
    int mFirstDescriptors = 0;
    int mDescriptors = 0;
};
