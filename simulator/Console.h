#pragma once

#include <QString>

/** What the simulator says: answers and events on standard output for programs, faults of its start on
 * standard error. */
namespace Hmi::Simulator::Console {

/** One line on standard output, at once. */
void print(const QString& aLine);

/** One line on standard error, under the program's name. */
void printError(const QString& aLine);

} // namespace Hmi::Simulator::Console
