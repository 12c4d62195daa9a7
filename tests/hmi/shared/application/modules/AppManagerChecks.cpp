#include <hmi/shared/application/modules/AppManager.h>

#include <QScopedPointer>
#include <gtest/gtest.h>
#include <tests/support/ExpectedMessages.h>

using Hmi::Shared::AppManager;

namespace {

QScopedPointer<AppManager> managerOfANewEngine()
{
    return QScopedPointer<AppManager>(
        qobject_cast<AppManager*>(AppManager::registerInstance(nullptr, nullptr)));
}

QString current(const AppManager& aManager)
{
    return aManager.getCurrentApp().value(QStringLiteral("page")).toString();
}

struct Apps : testing::Test
{
    Apps()
    {
        AppManager::declareApps(
            {{QStringLiteral("radio"), QStringLiteral("Radio"), QStringLiteral("Radio.qml")},
             {QStringLiteral("map"), QStringLiteral("Map"), QStringLiteral("Map.qml")}});
    }
    ~Apps() override { AppManager::declareApps({}); }
};

} // namespace

TEST_F(Apps, GivesEveryEngineTheDeclaredAppsAndACurrentOneOfItsOwn)
{
    const QScopedPointer<AppManager> first = managerOfANewEngine();
    const QScopedPointer<AppManager> second = managerOfANewEngine();
    EXPECT_TRUE(first->addApp(QStringLiteral("phone"), QStringLiteral("Phone"), QStringLiteral("Phone.qml")));
    EXPECT_TRUE(first->show(QStringLiteral("map")));
    EXPECT_EQ(first->getApps().size(), 3);
    EXPECT_EQ(second->getApps().size(), 2);
    EXPECT_EQ(current(*first), QStringLiteral("Map.qml"));
    EXPECT_EQ(current(*second), QString());
}

TEST_F(Apps, KeepsTheCurrentAppWhenAnotherCannotBeShown)
{
    const QScopedPointer<AppManager> manager = managerOfANewEngine();
    int changes = 0;
    QObject::connect(manager.data(), &AppManager::currentAppChanged, [&changes] { ++changes; });
    EXPECT_TRUE(manager->show(QStringLiteral("radio")));
    EXPECT_TRUE(manager->show(QStringLiteral("radio")));
    HmiTest::expectWarning(QStringLiteral("There is no app \"games\" to show."));
    EXPECT_FALSE(manager->show(QStringLiteral("games")));
    HmiTest::expectWarning(QStringLiteral("The app name \"map\" is empty or taken; the app is not added."));
    EXPECT_FALSE(manager->addApp(QStringLiteral("map"), QString(), QString()));
    EXPECT_EQ(current(*manager), QStringLiteral("Radio.qml"));
    EXPECT_EQ(changes, 1);
}
