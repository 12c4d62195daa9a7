#pragma once

#include <cstdio>
#include <cstring>
#include <string>

#include "Times.h"
#include <signal_service.pb.h>

// What the writer and the reader of the signal benchmarks agree upon, whatever goes between them.

constexpr int SignalPaths = 20;
constexpr int ManySignalPaths = 500;

/** As many as fit 64 KiB, in whole rounds of the paths. */
constexpr int SignalBatch = 1140;

/** Where the writer is on its bus. */
constexpr const char* SignalBusName = "hmi.benchmark.Signals";
constexpr const char* SignalObjectPath = "/signals";

/** Of 40 characters, for numbers below 1000. */
inline std::string signalPath(int aNumber)
{
    char path[64];
    std::snprintf(path, sizeof path, "Vehicle.Cabin.Comfort.Seats.Position.%03d", aNumber);
    return path;
}

inline double signalValue(const char* aBytes)
{
    double value = 0;
    std::memcpy(&value, aBytes, sizeof value);
    return value;
}

/** With its length before it. */
template <class Message>
std::string signalFrame(const Message& aMessage)
{
    const std::string bytes = aMessage.SerializeAsString();
    return static_cast<char>(bytes.size()) + bytes;
}

inline SignalService::ResponseMessage signalResponse(int aNumber, double aValue)
{
    SignalService::ResponseMessage response;
    response.set_type(SignalService::RESPONSE_VALUE);
    response.set_path(signalPath(aNumber % SignalPaths));
    response.set_value(&aValue, sizeof aValue);
    response.set_status(0);
    return response;
}

/** The value in a message of the above, which ends with it and two bytes of status. */
inline int signalValueOffset(int aMessageSize) { return aMessageSize - 2 - static_cast<int>(sizeof(double)); }
