#pragma once

#include "TalkingProcess.h"

#include <gtest/gtest.h>

/** Where Qt's QML tools find the modules and, unless it is empty, this configuration. */
inline QProcessEnvironment qmlToolEnvironment(const QString& aConfig)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString& entry : QStringLiteral(HMI_QML_TOOL_ENVIRONMENT).split(QLatin1Char('|')))
        environment.insert(entry.section(QLatin1Char('='), 0, 0), entry.section(QLatin1Char('='), 1));
    environment.remove(QStringLiteral("HMI_CONFIG"));
    if (!aConfig.isEmpty())
        environment.insert(QStringLiteral("HMI_CONFIG"), aConfig);
    return environment;
}

/** Qt's QML tool with a screen, which says what it sees. */
class QmlScreen : public TalkingProcess
{
public:
    /** With the configuration "host.ini" of the folder. */
    QmlScreen(const QTemporaryDir& aFolder, const QByteArray& aContent)
    {
        HmiTest::writeFile(aFolder, "Screen.qml", "import QtQuick 2.15\nimport hmi.shared 1.0\n" + aContent);
        mProcess.setProcessEnvironment(qmlToolEnvironment(aFolder.filePath(QStringLiteral("host.ini"))));
        mProcess.setProcessChannelMode(QProcess::MergedChannels);
        mProcess.start(QStringLiteral(HMI_QT_TOOLS "/qml"), {aFolder.filePath(QStringLiteral("Screen.qml"))});
    }

    bool says(const QByteArray& aLine)
    {
        const bool said = TalkingProcess::says("qml: " + aLine);
        EXPECT_TRUE(said) << mLines.toStdString();
        return said;
    }
};
