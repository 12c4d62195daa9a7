#pragma once

#include <QHash>
#include <QString>
#include <QVector>

#include <platform/metron/EventRing.h>

namespace Metron {

/** The result of a recording. */
struct Recording
{
    QString name;
    QVector<Event> events;           ///< those that were kept, as the ring gave them
    QHash<int, QString> threadNames; ///< by thread id; threads that have ended have none
    int overwritten = 0;             ///< events that the ring had lost when they were captured
    int filteredOut = 0;             ///< events that the filter does not take
    int overLimit = 0;               ///< events dropped from the beginning, because of the limit
};

} // namespace Metron
