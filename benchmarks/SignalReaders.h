#pragma once

#include <string>

class SignalTally;

// Each hands the values of the writer at the address to the tally, and returns after the last.

/** read(2), blocking, and cuts what it gets into frames: the least that any reader does. */
void readBySystemCall(const std::string& aAddress, SignalTally& aTally);
/** A bare QLocalSocket whose readyRead() cuts the bytes into frames, as it is written by hand. */
void readByLocalSocket(const std::string& aAddress, SignalTally& aTally);
/** TransportProxy and an RxSignalProxy for each path. */
void readByProxies(const std::string& aAddress, SignalTally& aTally);
/** The same with very many paths. */
void readByManyProxies(const std::string& aAddress, SignalTally& aTally);
/** The QML type for each path, with a handler that assigns the value to a property. */
void readByQml(const std::string& aAddress, SignalTally& aTally);
/** A stream of gRPC, its messages read one by one in this thread. */
void readByGrpc(const std::string& aAddress, SignalTally& aTally);
/** Qt D-Bus: a signal of the session bus, connected to a slot. */
void readByDBus(const std::string& aAddress, SignalTally& aTally);
