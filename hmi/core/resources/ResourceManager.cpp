#include <hmi/core/resources/ResourceManager.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <algorithm>

#include <hmi/core/foundation/HmiCoreConfigs.h>

namespace Hmi::Core {

ResourceManager::ResourceManager() :
    ResourceManager(HmiCoreConfigs::instance()->getThemesPath(), QCoreApplication::applicationDirPath())
{}

ResourceManager::ResourceManager(const QString& aThemesFolder, const QString& aApplicationFolder) :
    mThemesFolder(aThemesFolder), mApplicationFolder(aApplicationFolder)
{}

void ResourceManager::loadResources(const QString& aThemesFolder)
{
    mThemesFolder = aThemesFolder;
    mThemeNames.clear();
    const QStringList files =
        QDir(aThemesFolder).entryList({QStringLiteral("*.rcc")}, QDir::Files, QDir::Name);
    for (const QString& file : files)
        mThemeNames.append(QFileInfo(file).completeBaseName());
}

bool ResourceManager::registerResource(const QString& aFileName)
{
    if (findRegistered(aFileName) != mBundles.cend()) {
        qWarning("The resource bundle '%s' is already registered.", qUtf8Printable(aFileName));
        return false;
    }
    const QString path = findBundle(aFileName);
    if (path.isEmpty())
        return false;
    Bundle bundle{ResourceBundle::open(path), ResourceTable()};
    if (!bundle.content)
        return false;
    const QString table = bundle.content->getRoot() + QStringLiteral("/resources.xml");
    if (QFileInfo::exists(table) && !bundle.table.read(table))
        return false;
    mBundles.push_back(std::move(bundle));
    emit resourcesChanged();
    return true;
}

bool ResourceManager::unregisterResource(const QString& aFileName)
{
    const auto bundle = findRegistered(aFileName);
    if (bundle == mBundles.cend()) {
        qWarning("The resource bundle '%s' is not registered.", qUtf8Printable(aFileName));
        return false;
    }
    mBundles.erase(bundle);
    emit resourcesChanged();
    return true;
}

QString ResourceManager::getFilePath(const QString& aFileName) const
{
    const auto bundle = findRegistered(aFileName);
    return bundle == mBundles.cend() ? QString() : bundle->content->getFilePath();
}

bool ResourceManager::addBuiltInTable(const QString& aFilePath)
{
    const auto isSame = [&](const ResourceTable& table) { return table.getFilePath() == aFilePath; };
    if (std::any_of(mBuiltInTables.cbegin(), mBuiltInTables.cend(), isSame))
        return true;
    ResourceTable table;
    if (!table.read(aFilePath))
        return false;
    mBuiltInTables.push_back(table);
    emit resourcesChanged();
    return true;
}

QString ResourceManager::getFile(ResourceKind aKind, const QString& aId) const
{
    for (auto bundle = mBundles.crbegin(); bundle != mBundles.crend(); ++bundle) {
        QString file = bundle->table.getFile(aKind, aId);
        if (!file.isEmpty())
            return file;
    }
    for (const ResourceTable& table : mBuiltInTables) {
        QString file = table.getFile(aKind, aId);
        if (!file.isEmpty())
            return file;
    }
    return QString();
}

QString ResourceManager::findBundle(const QString& aFileName) const
{
    if (aFileName.isEmpty() || aFileName != QFileInfo(aFileName).fileName()) {
        qWarning("The resource bundle '%s' must be given by its file name alone.", qUtf8Printable(aFileName));
        return QString();
    }
    const char* fault = "was not found";
    for (const QString& folder : {mThemesFolder, mApplicationFolder}) {
        const QFileInfo info(QDir(folder), aFileName);
        if (info.isFile())
            return info.absoluteFilePath();
        if (info.exists())
            fault = "is a folder or a device, not a file";
    }
    qWarning("The resource bundle '%s' %s; it was looked for in '%s' and '%s'.", qUtf8Printable(aFileName),
             fault, qUtf8Printable(QDir(mThemesFolder).absolutePath()),
             qUtf8Printable(QDir(mApplicationFolder).absolutePath()));
    return QString();
}

std::vector<ResourceManager::Bundle>::const_iterator
ResourceManager::findRegistered(const QString& aFileName) const
{
    const QString root = QStringLiteral(":/") + QFileInfo(aFileName).completeBaseName();
    return std::find_if(mBundles.cbegin(), mBundles.cend(),
                        [&](const Bundle& bundle) { return bundle.content->getRoot() == root; });
}

} // namespace Hmi::Core
