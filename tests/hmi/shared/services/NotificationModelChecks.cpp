#include <hmi/shared/services/NotificationListModel.h>
#include <hmi/shared/services/NotificationModel.h>

#include <QStringList>
#include <gtest/gtest.h>
#include <tests/support/FilesAndWaits.h>

using Hmi::Shared::NotificationFramework::NotificationModel;

TEST(NotificationModel, TellsOfThePartsOfItsPositionThatChanged)
{
    NotificationModel model(QStringLiteral("text"), 7, 3, true, QStringLiteral("type"), QStringLiteral("id"));
    EXPECT_FALSE(model.getIsLocationValid());
    EXPECT_EQ(model.getLatitude(), 999.0F);
    EXPECT_EQ(model.getLongitude(), 999.0F);
    QStringList told;
    const auto tell = [&](const char* aWhat) {
        return [&told, &model, aWhat] {
            told << QStringLiteral("%1 %2 %3")
                        .arg(QLatin1String(aWhat))
                        .arg(model.getLatitude())
                        .arg(model.getLongitude());
        };
    };
    QObject::connect(&model, &NotificationModel::isLocationValidChanged, tell("valid"));
    QObject::connect(&model, &NotificationModel::latitudeChanged, tell("latitude"));
    QObject::connect(&model, &NotificationModel::longitudeChanged, tell("longitude"));
    struct Row
    {
        bool valid;
        float latitude;
        float longitude;
        const char* told;
    };
    const Row rows[] = {{true, 50, 8, "valid 50 8,latitude 50 8,longitude 50 8"},
                        {true, 50, 8, ""},
                        {true, 50, 9, "longitude 50 9"},
                        {false, 51, 9, "valid 51 9,latitude 51 9"}};
    for (const Row& row : rows) {
        model.setLocation(row.valid, row.latitude, row.longitude);
        EXPECT_EQ(HmiTest::joined(std::exchange(told, {})), row.told);
    }
}

TEST(NotificationListModel, HasNoServiceWhereThereIsNoBus)
{
    const Hmi::Shared::NotificationListModel model(QDBusConnection(QStringLiteral("none")));
    EXPECT_TRUE(HmiTest::waitUntil([&] { return !model.getServiceAvailable(); }));
    EXPECT_EQ(model.getCount(), 0);
}
