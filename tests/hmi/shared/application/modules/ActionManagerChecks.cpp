#include <hmi/shared/application/modules/ActionManager.h>

#include <gtest/gtest.h>
#include <tests/support/ExpectedMessages.h>
#include <tests/support/FilesAndWaits.h>

using Hmi::Shared::ActionManager;

TEST(ActionManager, TriggersWhatIsEnabledAndAllowedByTheGate)
{
    QObject source;
    QStringList journal;
    ActionManager manager([&](const QString& aName, QObject* aSource) {
        journal.append(QLatin1Char('?') + aName);
        return aSource == &source && aName != QLatin1String("call");
    });
    manager.addAction(QStringLiteral("dial"));
    manager.addAction(QStringLiteral("call"));
    manager.addAction(QStringLiteral("record"), false);
    QObject::connect(&manager, &ActionManager::actionTriggered,
                     [&journal](const QString& aName) { journal.append(aName); });
    HmiTest::expectWarning(QStringLiteral("The action \"record\" is disabled; it is not triggered."));
    HmiTest::expectWarning(QStringLiteral("The action \"hang up\" is unknown; it is not triggered."));
    for (const char* name : {"dial", "call", "record", "hang up"})
        EXPECT_EQ(manager.invoke(QLatin1String(name), {}, &source), qstrcmp(name, "dial") == 0) << name;
    EXPECT_EQ(HmiTest::joined(journal), "?dial,dial,?call");
}

TEST(ActionManager, SignalsOnlyRealChanges)
{
    const QString record = QStringLiteral("record");
    ActionManager manager{ActionManager::Gate()};
    int changes = 0;
    QObject::connect(&manager, &ActionManager::actionsChanged, [&changes] { ++changes; });
    EXPECT_TRUE(manager.addAction(record, false));
    EXPECT_TRUE(manager.setEnabled(record, false));
    HmiTest::expectWarning(
        QStringLiteral("The action name \"record\" is empty or taken; the action is not added."));
    EXPECT_FALSE(manager.addAction(record, true));
    EXPECT_FALSE(manager.isEnabled(record));
    EXPECT_EQ(changes, 1);
    const QVariantMap entry{{QStringLiteral("name"), record}, {QStringLiteral("enabled"), false}};
    EXPECT_EQ(manager.getActions(), QVariantList{entry});
    EXPECT_TRUE(manager.setEnabled(record, true));
    EXPECT_TRUE(manager.isEnabled(record));
    manager.removeAction(record);
    manager.removeAction(record);
    HmiTest::expectWarning(QStringLiteral("There is no action \"record\" to enable or disable."));
    EXPECT_FALSE(manager.setEnabled(record, true));
    EXPECT_EQ(changes, 3);
}
