#include <hmi/core/resources/HandleDefaultsResource.h>

#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "TestBundle.h"
#include <tests/support/ExpectedMessages.h>

using Hmi::Core::HandleDefaultsResource;
using Hmi::Core::ResourceManager;

namespace {

const QString Id = QStringLiteral("CHECK");
const QString Name = QStringLiteral("handle_check.rcc");

class HandleDefaultsResourceContent : public testing::Test
{
protected:
    void writeDefaults(const QByteArray& aJson)
    {
        HmiTest::writeBundle(mFolder.filePath(Name),
                             {{QStringLiteral("d.json"), aJson},
                              {QStringLiteral("resources.xml"),
                               "<resources><defaults id='CHECK' file='d.json'/></resources>"}});
    }

    QTemporaryDir mFolder;
    ResourceManager mManager{mFolder.path(), mFolder.path()};
};

TEST_F(HandleDefaultsResourceContent, FollowsTheRegistryAndTheId)
{
    HandleDefaultsResource handle(Id, mManager);
    int changes = 0;
    QObject::connect(&handle, &HandleDefaultsResource::objectChanged, [&] { ++changes; });
    EXPECT_FALSE(handle.isValid());

    writeDefaults(R"({"timeFormat": "12", "count": 3})");
    ASSERT_TRUE(mManager.registerResource(Name));
    EXPECT_TRUE(handle.isValid());
    EXPECT_EQ(handle.value(QStringLiteral("timeFormat")), QVariant(QStringLiteral("12")));
    EXPECT_EQ(handle.value(QStringLiteral("count")).toInt(), 3);
    EXPECT_EQ(handle.value(QStringLiteral("none"), 7), QVariant(7));

    handle.setResourceId(QStringLiteral("OTHER"));
    EXPECT_FALSE(handle.isValid());
    EXPECT_TRUE(handle.getObject().isEmpty());
    handle.setResourceId(Id);
    ASSERT_TRUE(mManager.unregisterResource(Name));
    EXPECT_FALSE(handle.isValid());

    writeDefaults(R"({"timeFormat": "24"})");
    ASSERT_TRUE(mManager.registerResource(Name));
    EXPECT_EQ(handle.value(QStringLiteral("timeFormat")), QVariant(QStringLiteral("24")));
    EXPECT_EQ(changes, 5);
}

TEST_F(HandleDefaultsResourceContent, IsInvalidAndReportedOnceWhenTheFileIsNoJsonObject)
{
    const QMap<QByteArray, QString> faults{{"{\"a\": 1,,}", QStringLiteral("are no JSON at offset \\d+: .+")},
                                           {"[1]", QStringLiteral("must be a JSON object; .+")},
                                           {"", QStringLiteral("are no JSON at offset \\d+: .+")}};
    HandleDefaultsResource handle(Id, mManager);
    for (auto fault = faults.cbegin(); fault != faults.cend(); ++fault) {
        writeDefaults(fault.key());
        HmiTest::expectMessageMatching(QtWarningMsg,
                                       QStringLiteral("The defaults ':/handle_check/d.json' ") + *fault);
        ASSERT_TRUE(mManager.registerResource(Name));
        emit mManager.resourcesChanged();
        EXPECT_FALSE(handle.isValid());
        ASSERT_TRUE(mManager.unregisterResource(Name));
    }
}

} // namespace
