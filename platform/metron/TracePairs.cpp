#include <platform/metron/TracePairs.h>

#include <QHash>
#include <QLatin1String>

namespace Metron {

static const QLatin1String sStart("Start");
static const QLatin1String sEnd("End");

static bool isMark(const QString& aName, QLatin1String aSuffix)
{
    return aName.size() > aSuffix.size() && aName.endsWith(aSuffix);
}

QString spanName(const QString& aEventName)
{
    for (const QLatin1String suffix : {sStart, sEnd}) {
        if (isMark(aEventName, suffix))
            return aEventName.chopped(suffix.size());
    }
    return aEventName;
}

/** The place in the list of the event to end; -1 when there is none. */
static int placeOfPartner(const QVector<int>& aOpen, const QVector<Event>& aEvents, int aThread)
{
    for (int place = aOpen.size() - 1; place >= 0; --place) {
        if (aEvents.at(aOpen.at(place)).thread == aThread)
            return place;
    }
    return aOpen.size() - 1;
}

static void connectPartners(const QVector<Event>& aEvents, QVector<TraceMark>& aMarks)
{
    QHash<QString, QVector<int>> openByName;
    for (int index = 0; index < aEvents.size(); ++index) {
        const Event& event = aEvents.at(index);
        QVector<int>& open = openByName[spanName(event.name)];
        if (isMark(event.name, sStart)) {
            open.append(index);
        } else if (isMark(event.name, sEnd) && !open.isEmpty()) {
            const int start = open.takeAt(placeOfPartner(open, aEvents, event.thread));
            aMarks[start] = {TraceMark::Begin, index};
            aMarks[index] = {TraceMark::End, start};
        }
    }
}

static void completeNested(const QVector<Event>& aEvents, QVector<TraceMark>& aMarks)
{
    QHash<int, QVector<int>> endsByThread;
    for (int index = 0; index < aEvents.size(); ++index) {
        const int end = aMarks.at(index).partner;
        const int thread = aEvents.at(index).thread;
        if (aMarks.at(index).kind != TraceMark::Begin || aEvents.at(end).thread != thread)
            continue;
        QVector<int>& ends = endsByThread[thread];
        while (!ends.isEmpty() && ends.constLast() < index)
            ends.removeLast();
        if (!ends.isEmpty() && ends.constLast() < end)
            continue;
        ends.append(end);
        aMarks[index].kind = TraceMark::Complete;
    }
}

QVector<TraceMark> findTracePairs(const QVector<Event>& aEvents)
{
    QVector<TraceMark> marks(aEvents.size());
    connectPartners(aEvents, marks);
    completeNested(aEvents, marks);
    return marks;
}

} // namespace Metron
