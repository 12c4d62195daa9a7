#include <hmi/core/resources/ResourceManager.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "TestBundle.h"
#include <tests/support/ExpectedMessages.h>

using Hmi::Core::ResourceKind;
using Hmi::Core::ResourceManager;
using HmiTest::writeBundle;
using HmiTest::writeFile;

namespace {

const QString Table = QStringLiteral("resources.xml");
const QString BundleName = QStringLiteral("registry_check.rcc");
const QString BundleRoot = QStringLiteral(":/registry_check");

class ResourceManagerFixture : public testing::Test
{
protected:
    ResourceManagerFixture()
    {
        QObject::connect(&mManager, &ResourceManager::resourcesChanged, [this] { ++mChanges; });
    }

    QString theme(const QString& aName) const { return mThemes.filePath(aName); }
    QString application(const QString& aName) const { return mApplication.filePath(aName); }
    QString defaultsFile(const char* aId) const
    {
        return mManager.getFile(ResourceKind::Defaults, QString::fromLatin1(aId));
    }

    QTemporaryDir mThemes;
    QTemporaryDir mApplication;
    ResourceManager mManager{mThemes.path(), mApplication.path()};
    int mChanges = 0;
};

using ResourceManagerBundles = ResourceManagerFixture;
using ResourceManagerTables = ResourceManagerFixture;

HmiTest::Files withTable(const QByteArray& aEntries, const QString& aFile)
{
    return {{Table, "<resources>" + aEntries + "</resources>"}, {aFile, "{}"}};
}

TEST_F(ResourceManagerBundles, AreTakenFromTheThemesBeforeTheApplicationsFolder)
{
    writeBundle(application(BundleName), {{QStringLiteral("application.txt"), "a"}});
    ASSERT_TRUE(mManager.registerResource(BundleName));
    EXPECT_TRUE(QFile::exists(BundleRoot + QStringLiteral("/application.txt")));
    HmiTest::expectWarning(QStringLiteral("The resource bundle 'registry_check.rcc' is already registered."));
    EXPECT_FALSE(mManager.registerResource(BundleName));
    ASSERT_TRUE(mManager.unregisterResource(BundleName));
    EXPECT_FALSE(QFile::exists(BundleRoot));
    HmiTest::expectWarning(QStringLiteral("The resource bundle 'registry_check.rcc' is not registered."));
    EXPECT_FALSE(mManager.unregisterResource(BundleName));

    writeBundle(theme(BundleName), {{QStringLiteral("theme.txt"), "t"}});
    ASSERT_TRUE(mManager.registerResource(BundleName));
    EXPECT_TRUE(QFile::exists(BundleRoot + QStringLiteral("/theme.txt")));
    EXPECT_FALSE(QFile::exists(BundleRoot + QStringLiteral("/application.txt")));
    EXPECT_EQ(mChanges, 3);
}

TEST_F(ResourceManagerBundles, AreRefusedWithTheReason)
{
    QDir(mApplication.path()).mkdir(QStringLiteral("folder.rcc"));
    writeFile(theme(QStringLiteral("text.rcc")), "this is no bundle");
    writeFile(theme(QStringLiteral("cut.rcc")), QByteArray("qres\0\0\0\3\0\0\1\0", 12));
    writeFile(theme(QStringLiteral("empty.rcc")), "");
    const QString folders =
        QStringLiteral("; it was looked for in '%1' and '%2'.").arg(mThemes.path(), mApplication.path());
    const QMap<QString, QString> reasons{
        {QStringLiteral("missing.rcc"), QStringLiteral("missing.rcc' was not found") + folders},
        {QStringLiteral("folder.rcc"),
         QStringLiteral("folder.rcc' is a folder or a device, not a file") + folders},
        {QStringLiteral("text.rcc"),
         theme(QStringLiteral("text.rcc' is not a resource bundle; build it with \"rcc --binary\"."))},
        {QStringLiteral("cut.rcc"),
         theme(QStringLiteral("cut.rcc' is cut short or damaged; install it again."))},
        {QStringLiteral("empty.rcc"), theme(QStringLiteral("empty.rcc' is empty; install it again."))},
        {QStringLiteral("../up.rcc"), QStringLiteral("../up.rcc' must be given by its file name alone.")},
        {QString(), QStringLiteral("' must be given by its file name alone.")}};
    for (auto reason = reasons.cbegin(); reason != reasons.cend(); ++reason) {
        HmiTest::expectWarning(QStringLiteral("The resource bundle '") + *reason);
        EXPECT_FALSE(mManager.registerResource(reason.key())) << qPrintable(reason.key());
    }
    EXPECT_EQ(mChanges, 0);
}

TEST_F(ResourceManagerBundles, AreListedWithoutBeingOpened)
{
    mManager.loadResources(theme(QStringLiteral("missing")));
    EXPECT_TRUE(mManager.getThemeNames().isEmpty());
    for (const char* name : {"night.rcc", "day.v2.rcc", "readme.txt"})
        writeFile(theme(QString::fromLatin1(name)), "no bundle");
    mManager.loadResources(mThemes.path());
    EXPECT_EQ(mManager.getThemeNames(), (QStringList{QStringLiteral("day.v2"), QStringLiteral("night")}));
}

TEST_F(ResourceManagerTables, GiveTheirIdsWhileTheBundleIsRegistered)
{
    const QString second = QStringLiteral("registry_second.rcc");
    writeFile(application(Table), "<resources><defaults id='A' file='built.json'/></resources>");
    writeFile(application(QStringLiteral("built.json")), "{}");
    writeBundle(theme(BundleName),
                withTable("<defaults id='A' file='x/a.json'/><defaults id='B' file='x/a.json'/>",
                          QStringLiteral("x/a.json")));
    writeBundle(theme(second), withTable("<defaults id='A' file='y.json'/>", QStringLiteral("y.json")));

    ASSERT_TRUE(mManager.addBuiltInTable(application(Table)));
    ASSERT_TRUE(mManager.addBuiltInTable(application(Table)));
    EXPECT_EQ(mChanges, 1);
    ASSERT_TRUE(mManager.registerResource(BundleName));
    ASSERT_TRUE(mManager.registerResource(second));
    EXPECT_EQ(defaultsFile("A"), QStringLiteral(":/registry_second/y.json"));
    EXPECT_EQ(defaultsFile("B"), QStringLiteral(":/registry_check/x/a.json"));
    ASSERT_TRUE(mManager.unregisterResource(second));
    EXPECT_EQ(defaultsFile("A"), QStringLiteral(":/registry_check/x/a.json"));
    ASSERT_TRUE(mManager.unregisterResource(BundleName));
    EXPECT_EQ(defaultsFile("A"), application(QStringLiteral("built.json")));
    EXPECT_EQ(defaultsFile("B"), QString());
}

TEST_F(ResourceManagerTables, RefuseTheWholeBundleWhenFaulty)
{
    const char* const faults[][2] = {
        {"<defaults id='A' file='a.json'/>\n<defaults", "line 2: .*"},
        {"<defaults id='A' file='a.json'/>\n<picture id='B' file='a.json'/>",
         "line 2: unknown element <picture>\\."},
        {"\n\n<defaults id='A' file='a.json'><x/></defaults>", "line 3: unknown element <x>\\."},
        {"<defaults id='A' file='a.json'/>\n<defaults id='A' file='a.json'/>",
         "line 2: the id 'A' is used twice\\."},
        {"<defaults id='A' file='none.json'/>",
         "line 1: the file ':/registry_check/none\\.json' of 'A' does not exist\\."},
        {"<defaults id='A'/>", "line 1: <defaults> needs the attributes id and file\\."},
        {"</resources><resources>", "line 1: .*"},
    };
    for (const auto& [entries, pattern] : faults) {
        writeBundle(theme(BundleName), withTable(entries, QStringLiteral("a.json")));
        HmiTest::expectMessageMatching(
            QtWarningMsg,
            QStringLiteral("The resource table ':/registry_check/resources.xml' is faulty in ") +
                QString::fromLatin1(pattern));
        EXPECT_FALSE(mManager.registerResource(BundleName)) << entries;
        EXPECT_EQ(defaultsFile("A"), QString());
        EXPECT_FALSE(QFile::exists(BundleRoot));
    }
    EXPECT_EQ(mChanges, 0);
}

} // namespace
