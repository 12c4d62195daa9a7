#pragma once

#include <QString>
#include <optional>

#include <platform/metron/CaptureFault.h>
#include <platform/metron/EventRing.h>
#include <platform/metron/Recording.h>
#include <platform/metron/RecordingDescriptor.h>

namespace Metron {

/**
 * Makes recordings of a process's performance events: load a descriptor, start, raise events, capture, save.
 * One recording at a time; a capture object can make several, one after the other. Nothing is written before
 * SaveTestResultJson().
 *
 * Belongs to one thread; the ring outlives it. Events are raised on any thread, but not while the results are
 * captured. Operations return a CaptureCode and throw nothing; after a failure getReason() has the words, and
 * the descriptor, the recording and the results are as they were unless said otherwise.
 */
class Q_DECL_EXPORT PerformanceCapture
{
public:
    explicit PerformanceCapture(const EventRing& aEvents) : mEvents(aEvents) {}

    /** Reads the descriptor of the next recording. AlreadyRecording while one runs. */
    unsigned long LoadDescriptorFile(const QString& aPath);

    enum class Since {
        Now,
        FirstEvent ///< with what was raised before, as far as the ring still has it
    };

    /** Which events belong to the recording, whose name has to be the descriptor's. Drops earlier results. */
    unsigned long StartRecording(const QString& aName, Since aSince = Since::Now);

    /**
     * Ends the recording, also when that is NothingRecorded. Its results are the latest events that the
     * filter takes, at most the descriptor's limit, of those that the ring still holds.
     */
    unsigned long CaptureResults();

    /** Writes the captured results as Trace Event JSON, the whole file or nothing. */
    unsigned long SaveTestResultJson(const QString& aPath);

    /** What was wrong with the latest operation; empty when it succeeded. */
    QString getReason() const { return mReason; }

private:
    unsigned long finish(const CaptureFault& aFault);
    Recording recorded(std::uint32_t aFrom) const;

    const EventRing& mEvents;
    std::optional<RecordingDescriptor> mDescriptor;
    std::optional<std::uint32_t> mFrom; ///< the recording's first position while it runs
    std::optional<Recording> mResults;
    QString mReason;
};

} // namespace Metron
