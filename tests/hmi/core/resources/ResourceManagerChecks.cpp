#include <hmi/core/resources/HandleDefaultsResource.h>
#include <hmi/core/resources/ResourceManager.h>

#include <QDir>

#include "TestBundle.h"
#include <tests/support/ExpectedMessages.h>

using namespace Hmi::Core;
using namespace HmiTest;

namespace {

class ResourceRegistry : public testing::Test
{
protected:
    bool add(const char* aBundle) { return mManager.registerResource(QLatin1String(aBundle)); }
    bool remove(const char* aBundle) { return mManager.unregisterResource(QLatin1String(aBundle)); }

    /** Writes a theme's bundle with a table of these entries and another file. */
    void writeTheme(const char* aBundle, const QByteArray& aEntries, const QByteArray& aFile,
                    const QByteArray& aContent = "{}")
    {
        const QByteArray table = "<resources>" + aEntries + "</resources>";
        writeBundle(mThemes, aBundle, {{"resources.xml", table}, {aFile, aContent}});
    }

    /** The entries of first.rcc. */
    static std::string entries() { return joined(QDir(QStringLiteral(":/first")).entryList()); }

    std::string file(const char* aId) const
    {
        return mManager.getFile(ResourceKind::Defaults, QLatin1String(aId)).toStdString();
    }

    const QTemporaryDir mThemes;
    const QTemporaryDir mApplication;
    ResourceManager mManager{mThemes.path(), mApplication.path()};
};

TEST_F(ResourceRegistry, TakesBundlesFromTheThemesBeforeTheApplicationsFolder)
{
    writeBundle(mApplication, "first.rcc", {{"application.txt", "a"}});
    EXPECT_TRUE(add("first.rcc"));
    EXPECT_EQ(entries(), "application.txt");
    expectWarning(QStringLiteral("The resource bundle 'first.rcc' is already registered."));
    EXPECT_FALSE(add("first.rcc"));
    EXPECT_TRUE(remove("first.rcc"));
    EXPECT_EQ(entries(), "");
    expectWarning(QStringLiteral("The resource bundle 'first.rcc' is not registered."));
    EXPECT_FALSE(remove("first.rcc"));

    writeBundle(mThemes, "first.rcc", {{"theme.txt", "t"}});
    EXPECT_TRUE(add("first.rcc"));
    EXPECT_EQ(entries(), "theme.txt");
}

TEST_F(ResourceRegistry, ListsThemesWithoutOpeningThemAndRefusesBundlesWithTheReason)
{
    QDir(mApplication.path()).mkdir(QStringLiteral("folder.rcc"));
    writeFile(mThemes, "text.v2.rcc", "this is no bundle");
    writeFile(mThemes, "cut.rcc", QByteArray("qres\0\0\0\3\0\0\1\0", 12));
    writeFile(mThemes, "empty.rcc", "");
    mManager.loadResources(mThemes.path());
    EXPECT_EQ(joined(mManager.getThemeNames()), "cut,empty,text.v2");
    for (const auto& [name, reason] :
         {std::pair("missing.rcc", "was not found; it was looked for in '/.+' and '/.+'"),
          std::pair("folder.rcc", "is a folder or a device, not a file; .+"),
          std::pair("text.v2.rcc", "is not a resource bundle; build it with \"rcc --binary\""),
          std::pair("cut.rcc", "is cut short or damaged; install it again"),
          std::pair("empty.rcc", "is empty; install it again"),
          std::pair("../up.rcc", "must be given by its file name alone")}) {
        expectMessageMatching(QtWarningMsg, QStringLiteral("The resource bundle '.*%1' %2\\.")
                                                .arg(QLatin1String(name), QLatin1String(reason)));
        EXPECT_FALSE(add(name)) << name;
    }
}

TEST_F(ResourceRegistry, FindsAnIdInTheBundleRegisteredLast)
{
    writeTheme("first.rcc", "<defaults id='A' file='x/a'/><defaults id='B' file='x/a'/>", "x/a");
    writeTheme("second.rcc", "<defaults id='A' file='y'/>", "y");
    writeFile(mApplication, "built.xml", "<resources><defaults id='A' file='built.xml'/></resources>");
    const QString builtIn = mApplication.filePath(QStringLiteral("built.xml"));
    int changes = 0;
    QObject::connect(&mManager, &ResourceManager::resourcesChanged, [&] { ++changes; });
    EXPECT_TRUE(mManager.addBuiltInTable(builtIn));
    EXPECT_TRUE(mManager.addBuiltInTable(builtIn));
    EXPECT_TRUE(add("first.rcc"));
    EXPECT_TRUE(add("second.rcc"));
    EXPECT_EQ(file("A"), ":/second/y");
    EXPECT_EQ(file("B"), ":/first/x/a");
    EXPECT_TRUE(remove("second.rcc"));
    EXPECT_EQ(file("A"), ":/first/x/a");
    EXPECT_TRUE(remove("first.rcc"));
    EXPECT_EQ(file("A"), builtIn.toStdString());
    EXPECT_EQ(file("B"), "");
    EXPECT_EQ(changes, 5);
}

TEST_F(ResourceRegistry, RefusesTheWholeBundleWhenItsTableIsFaulty)
{
    const QByteArray good = "<defaults id='A' file='a'/>\n";
    const std::pair<QByteArray, const char*> faults[] = {
        {good + "<defaults", "line 2: .*"},
        {good + "<picture id='B' file='a'/>", "line 2: unknown element <picture>\\."},
        {good + "\n<defaults id='B' file='a'><x/></defaults>", "line 3: unknown element <x>\\."},
        {good + good, "line 2: the id 'A' is used twice\\."},
        {"<defaults id='A' file='none'/>", "line 1: the file ':/first/none' of 'A' does not exist\\."},
        {"<defaults id='A'/>", "line 1: <defaults> needs the attributes id and file\\."},
        {"</resources><resources>", "line 1: .*"},
    };
    const QString start = QStringLiteral("The resource table ':/first/resources.xml' is faulty in ");
    for (const auto& [content, pattern] : faults) {
        writeTheme("first.rcc", content, "a");
        expectMessageMatching(QtWarningMsg, start + QLatin1String(pattern));
        EXPECT_FALSE(add("first.rcc")) << content.constData();
        EXPECT_EQ(file("A") + entries(), "");
    }
}

TEST_F(ResourceRegistry, KeepsTheHandleOfAnIdUpToDate)
{
    HandleDefaultsResource handle(QStringLiteral("A"), mManager);
    QStringList values;
    QObject::connect(&handle, &HandleDefaultsResource::objectChanged, [&] {
        values.append(handle.value(QStringLiteral("a"), QStringLiteral("none")).toString());
    });
    for (const auto& [json, fault] :
         {std::pair(R"({"a": "x"})", ""), std::pair(R"({"a": "y"})", ""), std::pair("[1]", "must be a .+"),
          std::pair("{\"a\": 1,,}", "are no JSON at offset \\d+: .+")}) {
        writeTheme("first.rcc", "<defaults id='A' file='a'/>", "a", json);
        if (*fault)
            expectMessageMatching(QtWarningMsg,
                                  QLatin1String("The defaults ':/first/a' ") + QLatin1String(fault));
        EXPECT_TRUE(add("first.rcc"));
        emit mManager.resourcesChanged();
        EXPECT_EQ(handle.isValid(), !*fault);
        EXPECT_TRUE(remove("first.rcc"));
    }
    writeTheme("first.rcc", "<defaults id='B' file='b'/>", "b", R"({"a": "z"})");
    EXPECT_TRUE(add("first.rcc"));
    handle.setResourceId(QStringLiteral("B"));
    handle.setResourceId(QStringLiteral("A"));
    EXPECT_EQ(joined(values), "x,none,y,none,z,none");
}

} // namespace
