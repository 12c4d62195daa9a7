#pragma once

#include <QQmlAbstractUrlInterceptor>

namespace Hmi::Shared {

/**
 * Hides the plugins of the library's QML modules from an engine whose process has registered their types: Qt
 * refuses such a plugin, and every screen with it, wherever it finds one on its import path. Any thread; has
 * to outlive the engine.
 */
class RegisteredModules : public QQmlAbstractUrlInterceptor
{
public:
    QUrl intercept(const QUrl& aUrl, DataType aType) override;
};

} // namespace Hmi::Shared
