#include "FileLogging.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <hmi/shared/application/LogMessageHandler.h>

namespace HmiTest {

FileLogging::FileLogging() : mOldName(QCoreApplication::applicationName())
{
    QDir::setCurrent(mFolder.path());
    QCoreApplication::setApplicationName(QStringLiteral("a*p"));
}

FileLogging::~FileLogging()
{
    delete Hmi::Shared::LogMessageHandler::instance();
    QCoreApplication::setApplicationName(mOldName);
    QDir::setCurrent(mOldFolder);
}

void FileLogging::write(const Files& aFiles)
{
    for (auto entry = aFiles.begin(); entry != aFiles.end(); ++entry) {
        QFile file(entry.key());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(entry.value());
    }
}

Files FileLogging::readAll()
{
    Files files;
    for (const QFileInfo& entry :
         QDir::current().entryInfoList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)) {
        QFile file(entry.fileName());
        const bool readable = entry.isFile() && !entry.isSymLink() && file.open(QIODevice::ReadOnly);
        files[entry.fileName()] = readable ? file.readAll() : "-";
    }
    return files;
}

} // namespace HmiTest
