#include <hmi/shared/application/modules/AppManager.h>

#include <QScopedPointer>
#include <gtest/gtest.h>
#include <tests/support/ExpectedMessages.h>

using Hmi::Shared::AppManager;

TEST(AppManager, GivesEveryEngineTheDeclaredAppsAndKeepsTheCurrentOneWhenAnotherCannotBeShown)
{
    AppManager::declareApps({{QStringLiteral("map"), QStringLiteral("Map"), QStringLiteral("Map.qml")}});
    const QScopedPointer<QObject> first(AppManager::registerInstance(nullptr, nullptr));
    const QScopedPointer<QObject> second(AppManager::registerInstance(nullptr, nullptr));
    AppManager::declareApps({});
    auto* manager = qobject_cast<AppManager*>(first.data());
    auto* other = qobject_cast<AppManager*>(second.data());
    EXPECT_TRUE(manager->addApp(QStringLiteral("phone"), QString(), QString()));
    EXPECT_TRUE(manager->show(QStringLiteral("map")));
    HmiTest::expectWarning(QStringLiteral("There is no app \"games\" to show."));
    EXPECT_FALSE(manager->show(QStringLiteral("games")));
    HmiTest::expectWarning(QStringLiteral("The app name \"map\" is empty or taken; the app is not added."));
    EXPECT_FALSE(manager->addApp(QStringLiteral("map"), QString(), QString()));
    EXPECT_EQ(manager->getApps().size(), 2);
    EXPECT_EQ(manager->getCurrentApp(), manager->getApps().first().toMap());
    EXPECT_EQ(other->getApps().size(), 1);
    EXPECT_NE(other->getCurrentApp(), manager->getCurrentApp());
}
