#pragma once

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <hmi/core/foundation/ConfigManager.h>

namespace HmiTest {

inline QString text(const char* aUtf8) { return QString::fromUtf8(aUtf8); }

/** A configuration of its own for each check, and a folder for its files. */
class ConfigFolder : public testing::Test
{
protected:
    /** A file of its own each time: QSettings takes one of the same name, size and time for unchanged. */
    QString write(const QByteArray& aContent)
    {
        QFile file(mFolder.filePath(QStringLiteral("%1_test.ini").arg(++mFiles)));
        EXPECT_TRUE(file.open(QFile::WriteOnly) && file.write(aContent) == aContent.size());
        return file.fileName();
    }

    void load(const QByteArray& aContent) { ASSERT_TRUE(mConfig.load(write(aContent))); }

    QString value(const char* aKey, bool aResolvePaths = true) const
    {
        return mConfig.text(text(aKey), aResolvePaths);
    }

    QString inFolder(const char* aPath) const { return mFolder.path() + QLatin1Char('/') + text(aPath); }

    QTemporaryDir mFolder;
    int mFiles = 0;
    Hmi::Core::ConfigManager mConfig;
};

} // namespace HmiTest
