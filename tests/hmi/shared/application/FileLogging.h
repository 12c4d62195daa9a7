#pragma once

#include <QByteArray>
#include <QDir>
#include <QMap>
#include <QString>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace HmiTest {

using Files = QMap<QString, QByteArray>;

/** Works in a temporary folder as an application "a*p", and ends file logging afterwards. */
class FileLogging : public testing::Test
{
protected:
    FileLogging();
    ~FileLogging() override;

    static void write(const Files& aFiles);
    static QByteArray readCurrentLog() { return readAll().value(QStringLiteral("a*p_1.log")); }

    /** The content of every regular file of the folder by its name; links and folders read as "-". */
    static Files readAll();

private:
    QTemporaryDir mFolder;
    QString mOldFolder = QDir::currentPath();
    QString mOldName;
};

} // namespace HmiTest
