#pragma once

#include <QHash>
#include <QString>
#include <QTemporaryDir>

#include <platform/data-manager/DataManager.h>
#include <tests/support/FilesAndWaits.h>

/** A folder with a configuration, on which the data manager runs until the check ends. */
struct StoreFolder
{
    ~StoreFolder() { DataManager::ShutDown(); }

    int start(const QByteArray& aConfiguration = "[Storage]\n",
              const QHash<QString, QString>& aParameters = {})
    {
        HmiTest::writeFile(folder, "DataManagerConf.ini", aConfiguration);
        return DataManager::StartUp(configuration(), aParameters);
    }

    int restart()
    {
        DataManager::ShutDown();
        return DataManager::StartUp(configuration());
    }

    QString configuration() const { return folder.filePath(QStringLiteral("DataManagerConf.ini")); }
    QString path(const char* aName) const { return folder.filePath(QString::fromLatin1(aName)); }

    QTemporaryDir folder;
};
