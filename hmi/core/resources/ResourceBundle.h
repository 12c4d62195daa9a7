#pragma once

#include <QString>
#include <memory>

namespace Hmi::Core {

/**
 * One Qt binary resource file (.rcc) while it is registered: created by open(), withdrawn by its destructor.
 * Its entries are found below a root of its own, so that bundles never hide each other's entries. Entries
 * that are still open when the bundle is withdrawn stay readable. Main thread only.
 */
class Q_DECL_EXPORT ResourceBundle
{
public:
    /**
     * Checks the whole structure of the file and registers it. Null, with nothing registered and a warning
     * that names the file, when it cannot be read, is no bundle or is damaged.
     */
    static std::unique_ptr<ResourceBundle> open(const QString& aFilePath);

    ~ResourceBundle();
    Q_DISABLE_COPY_MOVE(ResourceBundle)

    QString getFilePath() const { return mFilePath; }

    /** Where the entries are found: ":/" and the file's base name, as in ":/theme_night" of theme_night.rcc.
     */
    QString getRoot() const;

private:
    ResourceBundle(const QString& aFilePath, const QString& aMapRoot);

    QString mFilePath;
    QString mMapRoot;
};

} // namespace Hmi::Core
