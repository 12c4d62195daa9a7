#include <hmi/shared/application/RegisteredModules.h>

#include <QString>
#include <QUrl>
#include <algorithm>
#include <array>

namespace Hmi::Shared {

QUrl RegisteredModules::intercept(const QUrl& aUrl, DataType aType)
{
    static const std::array<QString, 6> modules = {
        QStringLiteral("/Hmi/Core/qmldir"),       QStringLiteral("/hmi/shared/qmldir"),
        QStringLiteral("/hmi/asr/qmldir"),        QStringLiteral("/hmi/vehicle/qmldir"),
        QStringLiteral("/hmi/navigation/qmldir"), QStringLiteral("/hmi/navigation/guidance/qmldir")};
    if (aType != QmldirFile)
        return aUrl;
    const QString path = aUrl.path();
    const auto isOwn = [&](const QString& aModule) { return path.endsWith(aModule); };
    return std::any_of(modules.begin(), modules.end(), isOwn) ? QUrl() : aUrl;
}

} // namespace Hmi::Shared
