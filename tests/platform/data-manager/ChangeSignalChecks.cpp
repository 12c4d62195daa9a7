#include <platform/data-manager/DataManagerSignalClient.h>

#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QElapsedTimer>
#include <QFile>
#include <QLocalServer>
#include <QSignalSpy>
#include <gtest/gtest.h>
#include <platform/bus/BusWork.h>
#include <platform/data-manager/ChangeBus.h>
#include <sqlite3.h>
#include <tests/support/ExpectedMessages.h>
#include <tests/support/PrivateBus.h>

#include "StoreFolder.h"

namespace ChangeBus = DataManager::ChangeBus;
namespace Settings = DataManager::Settings;

namespace {

/** Waits until the bus has done all that was asked of it over the connection: an answer comes after that. */
void settle(const QDBusConnection& aBus)
{
    EXPECT_TRUE(aBus.interface()->isServiceRegistered(QStringLiteral("org.freedesktop.DBus")));
}

/** Another process as the bus sees it: a connection that announces and listens. */
class Stranger : public QObject
{
    Q_OBJECT

public:
    Stranger() : mBus(QDBusConnection::connectToBus(QDBusConnection::SystemBus, QStringLiteral("stranger")))
    {
        mBus.connect(QString(), ChangeBus::Path, ChangeBus::Interface, ChangeBus::SettingChanged, this,
                     SLOT(onSetting(int, QString)));
        settle(mBus);
    }
    ~Stranger() override
    {
        mBus.disconnect(QString(), ChangeBus::Path, ChangeBus::Interface, ChangeBus::SettingChanged, this,
                        SLOT(onSetting(int, QString)));
        QCoreApplication::removePostedEvents(this, QEvent::MetaCall);
        QDBusConnection::disconnectFromBus(QStringLiteral("stranger"));
    }

    bool announce(QLatin1String aSignal, const QVariantList& aArguments)
    {
        QDBusMessage message = QDBusMessage::createSignal(ChangeBus::Path, ChangeBus::Interface, aSignal);
        message.setArguments(aArguments);
        return mBus.send(message);
    }

    QSet<QString> heard;

private slots:
    void onSetting(int aType, const QString& aId)
    {
        heard.insert(QStringLiteral("%1 %2").arg(aType).arg(aId));
    }

private:
    QDBusConnection mBus;
};

struct ChangeSignals : testing::Test, StoreFolder
{
    void SetUp() override
    {
        ASSERT_TRUE(HmiTest::PrivateBus::start());
        ASSERT_EQ(start(), DataManager::Ok);
        client = std::make_unique<DataManagerSignalClient>(
            QDBusConnection::connectToBus(QDBusConnection::SystemBus, QStringLiteral("client")));
        settings =
            std::make_unique<QSignalSpy>(client.get(), &DataManagerSignalClient::DataManagerSettingChanged);
        profiles =
            std::make_unique<QSignalSpy>(client.get(), &DataManagerSignalClient::DataManagerProfileChanged);
    }

    void TearDown() override
    {
        for (const QString& id : requested)
            Settings::releaseSettingChangedSignal(id, QStringLiteral("check"));
        client.reset();
        QDBusConnection::disconnectFromBus(QStringLiteral("client"));
        DataManager::ShutDown();
        HmiTest::PrivateBus::stop();
    }

    void request(const QString& aId)
    {
        EXPECT_EQ(Settings::requestSettingChangedSignal(aId, QStringLiteral("check")), DataManager::Ok);
        requested.append(aId);
    }

    /** Also what is done beside the main thread, and what is told when the bus knows of it. */
    static void settle()
    {
        QCoreApplication::sendPostedEvents();
        Bus::BusWork work;
        work.add([] { ::settle(QDBusConnection(QStringLiteral("client"))); });
        work.finish();
        QCoreApplication::sendPostedEvents();
    }

    QStringList requested;
    std::unique_ptr<DataManagerSignalClient> client;
    std::unique_ptr<QSignalSpy> settings;
    std::unique_ptr<QSignalSpy> profiles;
};

const QString sVolume = QStringLiteral("volume");

} // namespace

TEST_F(ChangeSignals, TellOfOwnWritesAtOnceAndOnlyOnce)
{
    Stranger stranger;
    Settings::setGlobalSetting(sVolume, 1);
    EXPECT_EQ(settings->count(), 0) << "nobody asked";
    request(sVolume);
    settle();
    Settings::setGlobalSetting(sVolume, 2);
    Settings::setProtectedSetting(sVolume, 2);
    Settings::setUserSetting(sVolume, 2);
    Settings::setUserSettingForAllUsers(sVolume, 2);
    const int types[] = {3, 1, 0, 2};
    ASSERT_EQ(settings->count(), 4);
    for (int index = 0; index < 4; ++index) {
        EXPECT_EQ(settings->at(index)[0].toInt(), types[index]);
        EXPECT_EQ(settings->at(index)[1].toString(), sVolume);
    }
    // The bus brings them to others, and back.
    EXPECT_TRUE(HmiTest::waitUntil([&] { return stranger.heard.size() == 4; }));
    stranger.announce(ChangeBus::SettingChanged, {3, sVolume});
    EXPECT_TRUE(HmiTest::waitUntil([&] { return settings->count() >= 5; }));
    EXPECT_EQ(settings->count(), 5);
}

TEST_F(ChangeSignals, TellOfTheWritesOfOthersWhenTheyAreRequested)
{
    Stranger stranger;
    const QStringList ids = {sVolume, QStringLiteral("it's, \\ this"), QString(3000, QLatin1Char('x'))};
    for (const QString& id : ids)
        request(id);
    EXPECT_EQ(Settings::requestSettingChangedSignal(sVolume, QStringLiteral("other")), DataManager::Ok);
    EXPECT_EQ(Settings::releaseSettingChangedSignal(sVolume, QStringLiteral("other")), DataManager::Ok);
    EXPECT_EQ(Settings::releaseSettingChangedSignal(sVolume, QStringLiteral("other")),
              DataManager::SettingNotFound);
    settle();
    stranger.announce(ChangeBus::SettingChanged, {3, QStringLiteral("unrequested")});
    for (const QString& id : ids)
        stranger.announce(ChangeBus::SettingChanged, {0, id});
    stranger.announce(ChangeBus::ProfileChanged, {QStringLiteral("Anna")});
    EXPECT_TRUE(HmiTest::waitUntil([&] { return profiles->count() == 1 && settings->count() >= 3; }));
    EXPECT_EQ(profiles->at(0)[0].toString(), QStringLiteral("Anna"));
    ASSERT_EQ(settings->count(), 3);
    for (int index = 0; index < 3; ++index)
        EXPECT_EQ(settings->at(index)[1].toString(), ids[index]);

    for (const QString& id : ids)
        EXPECT_EQ(Settings::releaseSettingChangedSignal(id, QStringLiteral("check")), DataManager::Ok);
    requested.clear();
    settle();
    for (const QString& id : ids)
        stranger.announce(ChangeBus::SettingChanged, {0, id});
    stranger.announce(ChangeBus::ProfileChanged, {QStringLiteral("Bert")});
    EXPECT_TRUE(HmiTest::waitUntil([&] { return profiles->count() == 2; }));
    EXPECT_EQ(settings->count(), 3) << "released";
}

TEST_F(ChangeSignals, NoticeWhatOthersWroteBeforeTheBusKnewOfTheRequest)
{
    request(sVolume);
    sqlite3* other = nullptr;
    sqlite3_open(QFile::encodeName(path("hmi_settings.db")).constData(), &other);
    const char* const write = "UPDATE profile SET active = (name = 'default')";
    EXPECT_EQ(sqlite3_exec(other, write, nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(other);
    EXPECT_TRUE(HmiTest::waitUntil([&] { return settings->count() == 3 && profiles->count() == 1; }));
    EXPECT_EQ(profiles->at(0)[0].toString(), QStringLiteral("default"));
}

TEST_F(ChangeSignals, TellOfTheProfileThatBecameActive)
{
    namespace UserProfile = DataManager::UserProfile;
    UserProfile::addNewUserProfile(QStringLiteral("Anna"));
    EXPECT_EQ(profiles->count(), 0);
    UserProfile::setActiveUserProfile(QStringLiteral("Anna"));
    UserProfile::setActiveUserProfile(QStringLiteral("Anna"));
    UserProfile::updateProfileAttributesForActiveProfile(QStringLiteral("Anne"));
    UserProfile::deleteUserProfile(QStringLiteral("Anne"));
    QStringList names;
    for (const QList<QVariant>& arguments : qAsConst(*profiles))
        names.append(arguments[0].toString());
    EXPECT_EQ(HmiTest::joined(names), "Anna,Anne,driver");
}

TEST_F(ChangeSignals, OutliveTheBus)
{
    request(sVolume);
    std::unique_ptr<Stranger> stranger;
    const auto isHeard = [&] { return stranger->heard.contains(QStringLiteral("3 volume")); };
    const auto outage = [&] {
        stranger.reset();
        HmiTest::expectMessageMatching(QtWarningMsg,
                                       QStringLiteral("The data manager does not reach the system bus .*"));
        HmiTest::PrivateBus::stop();
        Settings::setGlobalSetting(sVolume, 5);
        EXPECT_GE(settings->count(), 1) << "no bus is needed at home";
        settings->clear();
        ASSERT_TRUE(HmiTest::PrivateBus::start());
        stranger = std::make_unique<Stranger>();
        EXPECT_TRUE(HmiTest::waitUntil([&] { return settings->count() == 3; })) << "told in case of a change";
        HmiTest::waitUntil(isHeard, 3000);
    };
    // What nobody could hear is announced when somebody can, which may be before the stranger listens.
    for (int attempt = 0; attempt < 5 && (!stranger || !isHeard()); ++attempt)
        ASSERT_NO_FATAL_FAILURE(outage());
    EXPECT_TRUE(isHeard());
    settings->clear();
    stranger->announce(ChangeBus::SettingChanged, {3, sVolume});
    EXPECT_TRUE(HmiTest::waitUntil([&] { return settings->count() == 1; }));
    EXPECT_EQ(profiles->count(), 0) << "the profile is the same";
}

TEST(ChangeSignalsOfASilentBus, KeepNobodyWaiting)
{
    StoreFolder store;
    ASSERT_EQ(store.start(), DataManager::Ok);
    QLocalServer silent;
    const QByteArray address = qgetenv("DBUS_SYSTEM_BUS_ADDRESS");
    const QString socket = QFile::decodeName(address).mid(QStringLiteral("unix:path=").size());
    QLocalServer::removeServer(socket);
    ASSERT_TRUE(silent.listen(socket));
    QElapsedTimer time;
    time.start();
    DataManagerSignalClient client;
    Settings::requestSettingChangedSignal(sVolume, QStringLiteral("check"));
    const QSignalSpy settings(&client, &DataManagerSignalClient::DataManagerSettingChanged);
    Settings::setGlobalSetting(sVolume, 5);
    EXPECT_EQ(settings.count(), 1);
    Settings::releaseSettingChangedSignal(sVolume, QStringLiteral("check"));
    EXPECT_LT(time.elapsed(), 10000) << "milliseconds; a call waits for 25 s";
    silent.close();
}

#include "ChangeSignalChecks.moc"
