#include <QFile>
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

TEST(Initialization, RefusesAQmlFileSingletonWithARelativeUrl)
{
    HmiTest::expectWarning(QStringLiteral("qmlRegisterSingletonType requires absolute URLs."));
    Core::registerQmlFileSingleton(QUrl(QStringLiteral("Hmi/Core/ObjectFactory.qml")), "HmiTest.Relative",
                                   "Factory");
}
