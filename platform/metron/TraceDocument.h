#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>
#include <QVector>

#include <platform/metron/Recording.h>
#include <platform/metron/TracePairs.h>

namespace Metron {

/**
 * A recording in the Trace Event format that trace viewers open: spans as complete events ("X") or, where
 * they cross others or end on another thread, as a begin and an end with an id ("b", "e"); all other events
 * as instants ("i"). Times are microseconds of CLOCK_MONOTONIC, so that the traces of several processes fit
 * together. Names of the process and its threads come first; "otherData" says how much was left out and why.
 */
class TraceDocument
{
public:
    explicit TraceDocument(const Recording& aRecording);

    QByteArray toJson() const;

private:
    void addProcess(const Recording& aRecording);
    void addName(const QString& aKind, int aThread, const QString& aName);
    void addEvent(int aIndex);
    void addSpan(QJsonObject& aTraceEvent, int aIndex) const;

    QVector<Event> mEvents; ///< by time
    QVector<TraceMark> mMarks;
    QJsonArray mTraceEvents;
    QJsonObject mOtherData;
};

} // namespace Metron
