#pragma once

#include <QMap>
#include <QProcess>
#include <gtest/gtest.h>

#include <tests/support/FilesAndWaits.h>

namespace HmiTest {

/** Contents by path. */
using Files = QMap<QByteArray, QByteArray>;

/** Compiles the files into a resource bundle of the folder with Qt's rcc; a failure fails the check. */
inline void writeBundle(const QTemporaryDir& aFolder, const char* aName, const Files& aFiles,
                        const QStringList& aOptions = {})
{
    const QTemporaryDir sources;
    QByteArray list("<RCC><qresource prefix=\"/\">");
    for (auto file = aFiles.cbegin(); file != aFiles.cend(); ++file) {
        const QByteArray source = QByteArray::number(list.size());
        writeFile(sources, source, file.value());
        list += "<file alias=\"" + file.key() + "\">" + source + "</file>";
    }
    writeFile(sources, "bundle.qrc", list + "</qresource></RCC>");
    const QStringList arguments{QStringLiteral("--binary"), sources.filePath(QStringLiteral("bundle.qrc")),
                                QStringLiteral("-o"), aFolder.filePath(QLatin1String(aName))};
    ASSERT_EQ(QProcess::execute(QStringLiteral(HMI_RCC), arguments + aOptions), 0);
}

} // namespace HmiTest
