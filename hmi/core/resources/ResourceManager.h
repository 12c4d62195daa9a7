#pragma once

#include <QString>

#include <hmi/core/foundation/SingletonCpp.h>
#include <hmi/core/resources/ResourceRegistry.h>

namespace Hmi::Core {

/**
 * The one ResourceRegistry of the process, over the configured themes folder and the application's folder.
 * Created after the configuration was loaded. The members behave as those of the registry; main thread only.
 */
class Q_DECL_EXPORT ResourceManager : public SingletonCpp<ResourceManager>
{
    Q_OBJECT
    friend class SingletonCpp<ResourceManager>;

public:
    bool registerResource(const QString& aFileName) { return mRegistry.registerResource(aFileName); }
    bool unregisterResource(const QString& aFileName) { return mRegistry.unregisterResource(aFileName); }
    bool addBuiltInTable(const QString& aFilePath) { return mRegistry.addBuiltInTable(aFilePath); }
    void loadResources(const QString& aThemesFolder) { mRegistry.loadResources(aThemesFolder); }

    /** For whoever looks resources up or follows their changes. It lives as long as the manager. */
    ResourceRegistry& getRegistry() { return mRegistry; }

private:
    ResourceManager();

    ResourceRegistry mRegistry;
};

} // namespace Hmi::Core
