#pragma once

#include <QString>
#include <qqml.h>

namespace Hmi::Core {

/** The version under which every QML module of the library is registered. */
constexpr int QmlMajorVersion = 1;
constexpr int QmlMinorVersion = 0;

/** Registers a singleton type whose provider is its class's registerInstance(). */
template <class T>
void registerQmlSingleton(const char* aUri, const char* aName)
{
    qmlRegisterSingletonType<T>(aUri, QmlMajorVersion, QmlMinorVersion, aName, &T::registerInstance);
}

/** Registers a type that QML may create. */
template <class T>
void registerQmlType(const char* aUri, const char* aName)
{
    qmlRegisterType<T>(aUri, QmlMajorVersion, QmlMinorVersion, aName);
}

/** Registers a type that QML may name but not create; trying to fails with "Can't create <name> in QML". */
template <class T>
void registerQmlUncreatableType(const char* aUri, const char* aName)
{
    qmlRegisterUncreatableType<T>(aUri, QmlMajorVersion, QmlMinorVersion, aName,
                                  QStringLiteral("Can't create %1 in QML").arg(QLatin1String(aName)));
}

/**
 * Registers a singleton written in QML. A relative URL is not registered; Qt logs the warning
 * "qmlRegisterSingletonType requires absolute URLs." instead.
 */
inline void registerQmlFileSingleton(const QUrl& aUrl, const char* aUri, const char* aName)
{
    qmlRegisterSingletonType(aUrl, aUri, QmlMajorVersion, QmlMinorVersion, aName);
}

} // namespace Hmi::Core
