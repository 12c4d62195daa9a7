#include <hmi/core/resources/HandleDefaultsResource.h>

#include <QFile>
#include <QJsonDocument>
#include <QJsonParseError>
#include <utility>

#include <hmi/core/resources/ResourceManager.h>

namespace Hmi::Core {

static bool readObject(const QString& aFilePath, QJsonObject& aObject)
{
    QFile file(aFilePath);
    if (!file.open(QIODevice::ReadOnly)) {
        qWarning("The defaults '%s' cannot be opened: %s.", qUtf8Printable(aFilePath),
                 qUtf8Printable(file.errorString()));
        return false;
    }
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    if (error.error != QJsonParseError::NoError) {
        qWarning("The defaults '%s' are no JSON at offset %d: %s.", qUtf8Printable(aFilePath), error.offset,
                 qUtf8Printable(error.errorString()));
        return false;
    }
    if (!document.isObject()) {
        qWarning("The defaults '%s' must be a JSON object; at offset 0 another value begins.",
                 qUtf8Printable(aFilePath));
        return false;
    }
    aObject = document.object();
    return true;
}

HandleDefaultsResource::HandleDefaultsResource(QObject* aParent) : HandleDefaultsResource(QString(), aParent)
{}

HandleDefaultsResource::HandleDefaultsResource(const QString& aResourceId, QObject* aParent) :
    HandleDefaultsResource(aResourceId, *ResourceManager::instance(), aParent)
{}

HandleDefaultsResource::HandleDefaultsResource(const QString& aResourceId, ResourceManager& aManager,
                                               QObject* aParent) :
    QObject(aParent), mManager(&aManager), mResourceId(aResourceId)
{
    connect(&aManager, &ResourceManager::resourcesChanged, this, &HandleDefaultsResource::follow);
    follow();
}

void HandleDefaultsResource::setResourceId(const QString& aResourceId)
{
    if (mResourceId == aResourceId)
        return;
    mResourceId = aResourceId;
    emit resourceIdChanged();
    follow();
}

QVariant HandleDefaultsResource::value(const QString& aName, const QVariant& aFallback) const
{
    const auto member = mObject.constFind(aName);
    return member == mObject.constEnd() ? aFallback : member->toVariant();
}

void HandleDefaultsResource::follow()
{
    if (!mManager)
        return;
    const QString file = mManager->getFile(ResourceKind::Defaults, mResourceId);
    if (mFile == file)
        return;
    mFile = file;
    QJsonObject object;
    const bool valid = !file.isEmpty() && readObject(file, object);
    setContent(object, valid);
}

void HandleDefaultsResource::setContent(const QJsonObject& aObject, bool aValid)
{
    const bool differs = mObject != aObject;
    const bool wasValid = std::exchange(mValid, aValid);
    mObject = aObject;
    if (differs)
        emit objectChanged();
    if (wasValid != mValid)
        emit validChanged();
}

} // namespace Hmi::Core
