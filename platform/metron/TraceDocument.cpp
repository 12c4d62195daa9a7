#include <platform/metron/TraceDocument.h>

#include <QCoreApplication>
#include <QJsonDocument>
#include <algorithm>
#include <set>

namespace Metron {

static double microseconds(std::int64_t aNanoseconds) { return static_cast<double>(aNanoseconds) / 1000.0; }

static QString phaseOf(TraceMark::Kind aKind)
{
    switch (aKind) {
    case TraceMark::Complete:
        return QStringLiteral("X");
    case TraceMark::Begin:
        return QStringLiteral("b");
    case TraceMark::End:
        return QStringLiteral("e");
    case TraceMark::Instant:
        break;
    }
    return QStringLiteral("i");
}

TraceDocument::TraceDocument(const Recording& aRecording) : mEvents(aRecording.events)
{
    // The ring is ordered by the moment before the time was taken; between threads that may differ.
    std::stable_sort(mEvents.begin(), mEvents.end(), [](const Event& left, const Event& right) {
        return left.nanoseconds < right.nanoseconds;
    });
    mMarks = findTracePairs(mEvents);
    mOtherData = {{QStringLiteral("recording"), aRecording.name},
                  {QStringLiteral("clock"), QStringLiteral("CLOCK_MONOTONIC")},
                  {QStringLiteral("eventsOverwritten"), aRecording.overwritten},
                  {QStringLiteral("eventsFilteredOut"), aRecording.filteredOut},
                  {QStringLiteral("eventsOverLimit"), aRecording.overLimit}};
    addProcess(aRecording);
    for (int index = 0; index < mEvents.size(); ++index)
        addEvent(index);
}

void TraceDocument::addProcess(const Recording& aRecording)
{
    const int process = static_cast<int>(QCoreApplication::applicationPid());
    addName(QStringLiteral("process_name"), process, QCoreApplication::applicationName());
    std::set<int> threads;
    for (const Event& event : qAsConst(mEvents))
        threads.insert(event.thread);
    for (const int thread : threads)
        addName(QStringLiteral("thread_name"), thread,
                thread == process ? QStringLiteral("main")
                                  : aRecording.threadNames.value(thread, QStringLiteral("ended thread")));
}

static QJsonObject traceEvent(const QString& aPhase, const QString& aName, int aThread)
{
    return {{QStringLiteral("ph"), aPhase},
            {QStringLiteral("name"), aName},
            {QStringLiteral("pid"), QCoreApplication::applicationPid()},
            {QStringLiteral("tid"), aThread}};
}

void TraceDocument::addName(const QString& aKind, int aThread, const QString& aName)
{
    QJsonObject event = traceEvent(QStringLiteral("M"), aKind, aThread);
    event.insert(QStringLiteral("args"), QJsonObject{{QStringLiteral("name"), aName}});
    mTraceEvents.append(event);
}

void TraceDocument::addEvent(int aIndex)
{
    const Event& event = mEvents.at(aIndex);
    const TraceMark& mark = mMarks.at(aIndex);
    const bool endOfComplete =
        mark.kind == TraceMark::End && mMarks.at(mark.partner).kind == TraceMark::Complete;
    if (endOfComplete)
        return;
    const bool instant = mark.kind == TraceMark::Instant;
    QJsonObject object =
        traceEvent(phaseOf(mark.kind), instant ? event.name : spanName(event.name), event.thread);
    object.insert(QStringLiteral("cat"), QStringLiteral("metron"));
    object.insert(QStringLiteral("ts"), microseconds(event.nanoseconds));
    if (instant)
        object.insert(QStringLiteral("s"), QStringLiteral("t"));
    else
        addSpan(object, aIndex);
    mTraceEvents.append(object);
}

void TraceDocument::addSpan(QJsonObject& aTraceEvent, int aIndex) const
{
    const TraceMark& mark = mMarks.at(aIndex);
    if (mark.kind == TraceMark::Complete)
        aTraceEvent.insert(QStringLiteral("dur"), microseconds(mEvents.at(mark.partner).nanoseconds -
                                                               mEvents.at(aIndex).nanoseconds));
    else
        aTraceEvent.insert(QStringLiteral("id"), mark.kind == TraceMark::Begin ? aIndex : mark.partner);
}

QByteArray TraceDocument::toJson() const
{
    return QJsonDocument(QJsonObject{{QStringLiteral("traceEvents"), mTraceEvents},
                                     {QStringLiteral("displayTimeUnit"), QStringLiteral("ms")},
                                     {QStringLiteral("otherData"), mOtherData}})
        .toJson();
}

} // namespace Metron
