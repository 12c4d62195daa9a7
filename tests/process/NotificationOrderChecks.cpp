#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QStringList>
#include <gtest/gtest.h>
#include <hmi/shared/services/NotificationListModel.h>
#include <tests/support/FilesAndWaits.h>
#include <tests/support/PrivateBus.h>
#include <utility>

namespace {

const QString sConnectionName = QStringLiteral("hmi-notification-order");
const QString sName = QStringLiteral("com.korvex.NotificationManager");
const QString sPath = QStringLiteral("/com/korvex/NotificationManager");

/**
 * A service on the client's own connection: Qt calls it directly, so that each answer is there before the
 * client can wait for it. It tells of a change with its first answer, which does not know that yet.
 */
class PromptService : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.korvex.NotificationManager")

public:
    PromptService(const char* aChange, const QVariantList& aArguments) :
        mChange(QString::fromLatin1(aChange)), mArguments(aArguments)
    {}

public slots:
    NotificationMgr::NotificationList GetCurrentNotifications()
    {
        if (!std::exchange(mTold, true)) {
            QDBusMessage change = QDBusMessage::createSignal(sPath, sName, mChange);
            change.setArguments(mArguments);
            QDBusConnection bus(sConnectionName);
            bus.send(change);
            // The bus answers behind the signal that it sends back.
            bus.interface()->isServiceRegistered(sName);
        }
        return {{1, {0, QStringLiteral("door"), QStringLiteral("open")}}};
    }

private:
    const QString mChange;
    const QVariantList mArguments;
    bool mTold = false;
};

} // namespace

TEST(NotificationListModel, HasWhatChangedBehindAnAnswer)
{
    ASSERT_TRUE(HmiTest::PrivateBus::start());
    struct Row
    {
        const char* change;
        QVariantList arguments;
        const char* counts; ///< one after the other
    };
    const Row rows[] = {
        {"NotificationAdded", {2, QStringLiteral("fuel"), QStringLiteral("low"), false, 0.0, 0.0}, "1,2"},
        {"NotificationDismissed", {1}, "1,0"}};
    for (const Row& row : rows) {
        PromptService service(row.change, row.arguments);
        QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SystemBus, sConnectionName);
        ASSERT_TRUE(bus.registerObject(sPath, &service, QDBusConnection::ExportAllSlots));
        ASSERT_TRUE(bus.registerService(sName));
        {
            const Hmi::Shared::NotificationListModel model(bus);
            QStringList counts;
            QObject::connect(&model, &Hmi::Shared::NotificationListModel::countChanged,
                             [&] { counts << QString::number(model.getCount()); });
            EXPECT_TRUE(HmiTest::waitUntil([&] { return HmiTest::joined(counts) == row.counts; }))
                << row.change << ": " << HmiTest::joined(counts);
        }
        QDBusConnection::disconnectFromBus(sConnectionName);
    }
}

#include "NotificationOrderChecks.moc"
