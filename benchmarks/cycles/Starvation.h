#pragma once

#include <QString>
#include <vector>

/** Milliseconds that the thread of this folder in /proc waited for a processor so far; 0 when it is gone. */
double starvedTime(const QString& aThread);

/** The same of all threads of these processes. */
double starvedTime(const std::vector<qint64>& aProcesses);
