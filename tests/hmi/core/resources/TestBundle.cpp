#include "TestBundle.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace HmiTest {

void writeFile(const QString& aPath, const QByteArray& aContent)
{
    QDir().mkpath(QFileInfo(aPath).path());
    QFile file(aPath);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(aContent), aContent.size());
}

void writeBundle(const QString& aPath, const Files& aFiles, const QStringList& aOptions)
{
    const QTemporaryDir sources;
    QByteArray list("<RCC><qresource prefix=\"/\">");
    for (auto file = aFiles.cbegin(); file != aFiles.cend(); ++file) {
        writeFile(sources.filePath(file.key()), file.value());
        list += "<file>" + file.key().toUtf8() + "</file>";
    }
    const QString collection = sources.filePath(QStringLiteral("bundle.qrc"));
    writeFile(collection, list + "</qresource></RCC>");
    const QStringList arguments{QStringLiteral("--binary"), collection, QStringLiteral("-o"), aPath};
    ASSERT_EQ(QProcess::execute(QStringLiteral(HMI_RCC), arguments + aOptions), 0);
}

} // namespace HmiTest
