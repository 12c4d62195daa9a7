#include <QFile>
#include <QMetaType>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <hmi/core/foundation/ConfigManager.h>
#include <hmi/core/foundation/Initialization.h>
#include <hmi/core/foundation/QmlRegistration.h>
#include <hmi/shared/application/PerfEventPolicyMetron.h>
#include <tests/support/ExpectedMessages.h>

using namespace Hmi;

namespace {

QStringList namesOf(const QVector<Metron::Event>& aEvents)
{
    QStringList names;
    for (const Metron::Event& event : aEvents)
        names.append(event.name);
    return names;
}

} // namespace

TEST(Initialization, RaisesItsMarkersInOrderAndReadsTheConfigurationOncePerProcess)
{
    QTemporaryDir folder;
    QFile other(folder.filePath(QStringLiteral("other.ini")));
    ASSERT_TRUE(other.open(QFile::WriteOnly) && other.write("[HmiCore]\nTouchDragStartDistance=77\n") > 0);
    other.close();
    const QString loaded = Core::ConfigManager::instance()->getFilePath();
    const auto policy = QSharedPointer<Shared::PerfEventPolicyMetron>::create();
    Core::initialize(policy, other.fileName(), {});
    EXPECT_EQ(Core::ConfigManager::instance()->getFilePath(), loaded);
    const QString prefix = QStringLiteral("Hmi/Core/");
    EXPECT_EQ(namesOf(policy->getEvents()),
              (QStringList{prefix + QStringLiteral("configureStart"), prefix + QStringLiteral("configureEnd"),
                           prefix + QStringLiteral("loadResourcesStart"),
                           prefix + QStringLiteral("loadThemesStart"),
                           prefix + QStringLiteral("loadResourcesEnd")}));
}

TEST(Initialization, RegistersEveryNameOfTheCoreModule)
{
    EXPECT_NE(QMetaType::type("Hmi::Core::HmiCoreGlobal::ApplicationViewMode"), QMetaType::UnknownType);
    const char* uncreatable[] = {"HmiCoreConfigs", "RestrictedModePolicy"};
    QQmlEngine engine;
    for (const char* name : uncreatable) {
        QQmlComponent component(&engine);
        component.setData(QByteArray("import Hmi.Core 1.0\n") + name + " {}", QUrl());
        ASSERT_EQ(component.errors().size(), 1);
        EXPECT_EQ(component.errors().constFirst().description(),
                  QStringLiteral("Can't create %1 in QML").arg(QLatin1String(name)));
    }
}

TEST(Initialization, RefusesAQmlFileSingletonWithARelativeUrl)
{
    HmiTest::expectWarning(QStringLiteral("qmlRegisterSingletonType requires absolute URLs."));
    Core::registerQmlFileSingleton(QUrl(QStringLiteral("Hmi/Core/ObjectFactory.qml")), "HmiTest.Relative",
                                   "Factory");
}
