#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <memory>
#include <vector>

#include <hmi/core/foundation/SingletonCpp.h>
#include <hmi/core/resources/ResourceBundle.h>
#include <hmi/core/resources/ResourceTable.h>

namespace Hmi::Core {

/**
 * Registers resource bundles by name and finds the resources of their tables by id. A bundle's table is its
 * entry "resources.xml"; a bundle without one has no ids.
 *
 * An id is looked for in the bundles, the last registered first, and then in the built-in tables, so that a
 * theme may replace a resource of an earlier bundle or of a library. Failures are reported as a warning that
 * names the bundle; nothing is registered or withdrawn then. Main thread only, created after the
 * configuration was loaded.
 */
class Q_DECL_EXPORT ResourceManager : public SingletonCpp<ResourceManager>
{
    Q_OBJECT
    friend class SingletonCpp<ResourceManager>;

public:
    /** Other folders than the process's: the configured themes folder and the application's. */
    ResourceManager(const QString& aThemesFolder, const QString& aApplicationFolder);

    /**
     * Remembers the folder of the themes and lists its bundles (*.rcc) for getThemeNames(), without opening
     * them. A folder that does not exist has no themes. Bundles already registered stay.
     */
    void loadResources(const QString& aThemesFolder);

    /** The base names of the bundles that loadResources() found, sorted. */
    QStringList getThemeNames() const { return mThemeNames; }

    /**
     * Registers the bundle of this file name, which has no folder part: the one in the themes folder, else
     * the one in the application folder. False when there is none, when it is damaged or its table faulty,
     * or when a bundle of the same base name is registered.
     */
    bool registerResource(const QString& aFileName);

    /** Withdraws the bundle and its ids. False when it is not registered. */
    bool unregisterResource(const QString& aFileName);

    /** The file that a registered bundle was read from; empty when the bundle is not registered. */
    QString getFilePath(const QString& aFileName) const;

    /**
     * Adds a table that is compiled into a library, by its resource path. A table that was added before is
     * left as it is.
     */
    bool addBuiltInTable(const QString& aFilePath);

    /** The path of the resource's file, or an empty string when no table has the id with this kind. */
    QString getFile(ResourceKind aKind, const QString& aId) const;

signals:
    /** A bundle came or went, or a built-in table was added: ids may stand for other files now. */
    void resourcesChanged();

private:
    struct Bundle
    {
        std::unique_ptr<ResourceBundle> content;
        ResourceTable table;
    };

    ResourceManager();

    QString findBundle(const QString& aFileName) const;
    std::vector<Bundle>::const_iterator findRegistered(const QString& aFileName) const;

    QString mThemesFolder;
    const QString mApplicationFolder;
    QStringList mThemeNames;
    std::vector<Bundle> mBundles;
    std::vector<ResourceTable> mBuiltInTables;
};

} // namespace Hmi::Core
