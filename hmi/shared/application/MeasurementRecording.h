#pragma once

#include <QString>
#include <functional>

#include <platform/metron/PerformanceCapture.h>

namespace Hmi::Shared {

/**
 * Measures the start-up and the shutdown of an application, when somebody asks for it by putting a descriptor
 * into the measurement directory: "ApplicationStartup.json" leads to "ApplicationStartup_res.json", a trace
 * of the performance events up to end(), and "ApplicationShutdown" likewise, from begin() on. Without a
 * descriptor nothing is recorded and nothing written.
 *
 * The application owns it, on the main thread; the ring is that of its PerfEventPolicyMetron and outlives it.
 * Whatever goes wrong is logged, a number in a warning and its reason in an info after it, and never stops
 * the application; neither does an exception of the performance-event library.
 */
class Q_DECL_EXPORT MeasurementRecording
{
public:
    /** A relative directory is one in the working directory of now. */
    MeasurementRecording(const QString& aDirectory, const Metron::EventRing& aEvents);

    /**
     * Makes the directory when it is missing and publishes its absolute native path in the environment
     * variable KORVEX_UNIT_TEST_RW_PATH, also when it cannot be made, which is a warning. Before other
     * threads run, because of the environment.
     */
    void prepare() const;

    /**
     * Begins the recording of that name when the directory has its descriptor; true when it runs. Names are
     * "Application" and the phase: "ApplicationStartup", "ApplicationShutdown". A recording that still runs
     * is ended first.
     */
    bool begin(const QString& aName);

    /** Ends the running recording and saves it in the directory; without one does nothing. */
    void end();

    /** Runs a step that uses the performance-event library; an exception from it is logged and false. */
    static bool attempt(const std::function<bool()>& aStep);

private:
    bool start(const QString& aName, const QString& aDescriptor);
    bool save(const QString& aName);
    QString filePath(const QString& aFileName) const;

    QString mDirectory;
    QString mRunning; ///< the name of the running recording, or empty
    Metron::PerformanceCapture mCapture;
};

} // namespace Hmi::Shared
