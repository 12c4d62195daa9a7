#pragma once

#include <QObject>
#include <map>
#include <optional>
#include <string>

#include <simulator/signal-service/SignalValue.h>

namespace Hmi::Simulator {

/** What is known of one path. */
struct Signal
{
    /** The value as a command shows it, or "unavailable". */
    QString toWord() const;

    SignalType type = SignalType::Bytes;
    bool writable = false;           ///< by clients
    bool upstream = false;           ///< another service's, which is asked about it
    std::optional<DataBuffer> value; ///< nothing: not available
};

/**
 * The signals that exist, by their paths in UTF-8, and their present values. Signals do not go away. Whoever
 * changes it sees to it that a value has the signal's type and fits a message.
 */
class SignalTable : public QObject
{
    Q_OBJECT

public:
    /** Stays where it is; null where there is none. */
    const Signal* find(const std::string& aPath) const;
    const std::map<std::string, Signal>& getSignals() const { return mSignals; }

    /** Makes the signal, without telling of its value. One that exists keeps all but becomes writable. */
    void declare(const std::string& aPath, const Signal& aSignal);
    /** The signal exists. An equal value is news as well. */
    void take(const std::string& aPath, const std::optional<DataBuffer>& aValue);

signals:
    void readerAdded(const std::string& aPath);
    void writerAdded(const std::string& aPath);
    void valueTaken(const std::string& aPath, const Hmi::Simulator::Signal& aSignal);

private:
    std::map<std::string, Signal> mSignals;
};

} // namespace Hmi::Simulator
