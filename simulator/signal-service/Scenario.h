#pragma once

#include <QString>
#include <optional>
#include <string>
#include <vector>

#include <simulator/signal-service/SignalTable.h>

namespace Hmi::Simulator {

/** What happens to signals over time, as a file holds it; docs/simulator.md describes the format. */
struct Scenario
{
    struct NamedSignal
    {
        std::string path;
        Signal signal; ///< as it is at the beginning
    };
    struct Step
    {
        qint64 at; ///< microseconds from the beginning
        std::size_t signal;
        std::optional<DataBuffer> value; ///< nothing: from now on not available
        QString command = {};            ///< not empty: in the place of a value; recordings have none
        bool once = false;               ///< left out when the steps begin again
    };

    /** Writes the file whole; false, with one message on standard error and the file as it was, if it cannot.
     */
    bool save(const QString& aFile) const;

    std::vector<NamedSignal> signalTable;
    std::vector<Step> steps; ///< in the order of their times
    qint64 loop = 0;         ///< microseconds after which the steps begin again; 0: never
};

} // namespace Hmi::Simulator
