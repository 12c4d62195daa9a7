#pragma once

#include <QString>
#include <QVector>

#include <platform/metron/EventRing.h>

namespace Metron {

/** What becomes of one event in a trace. */
struct TraceMark
{
    enum Kind {
        Instant,
        Complete, ///< begins a span that nests within the spans of its thread
        Begin,    ///< begins a span that crosses another one, or that ends on another thread
        End       ///< ends a span
    };

    Kind kind = Instant;
    int partner = -1; ///< index of the span's other event
};

/**
 * Finds the spans in events that are ordered by time: "xEnd" ends the latest "xStart" that is still open,
 * first of its own thread, then of any other. A mark without a partner stays an instant.
 *
 * Viewers need spans of one thread to nest. Of two that cross (AStart, BStart, AEnd, BEnd) the one that
 * begins later is no Complete but a Begin.
 */
QVector<TraceMark> findTracePairs(const QVector<Event>& aEvents);

/** The event's name without "Start" or "End"; the whole name when it has neither or is nothing else. */
QString spanName(const QString& aEventName);

} // namespace Metron
