#include <hmi/shared/application/modules/ActionManager.h>

#include <QJSEngine>
#include <QQmlEngine>
#include <gtest/gtest.h>
#include <tests/support/ExpectedMessages.h>

using Hmi::Shared::ActionManager;

namespace {

/** Forbids "call" and remembers who asked for it. */
struct Actions : testing::Test
{
    Actions()
    {
        QObject::connect(&mManager, &ActionManager::actionTriggered,
                         [this](const QString& aName, const QVariantMap& aArguments) {
                             mTriggered.append(aName);
                             mArguments = aArguments;
                         });
        QObject::connect(&mManager, &ActionManager::actionsChanged, [this] { ++mChanges; });
        mManager.addAction(QStringLiteral("dial"));
        mManager.addAction(QStringLiteral("call"));
        mManager.addAction(QStringLiteral("record"), false);
        mChanges = 0;
    }

    QObject* mRefusedSource = nullptr;
    QStringList mTriggered;
    QVariantMap mArguments;
    int mChanges = 0;
    ActionManager mManager{[this](const QString& aName, QObject* aSource) {
        const bool allowed = aName != QLatin1String("call");
        mRefusedSource = allowed ? mRefusedSource : aSource;
        return allowed;
    }};
};

} // namespace

TEST_F(Actions, TriggersWhatIsEnabledAndNotForbidden)
{
    QObject source;
    EXPECT_TRUE(mManager.invoke(QStringLiteral("dial"), {}, &source));
    EXPECT_EQ(mRefusedSource, nullptr);
    EXPECT_FALSE(mManager.invoke(QStringLiteral("call"), {}, &source));
    EXPECT_EQ(mRefusedSource, &source);
    HmiTest::expectWarning(QStringLiteral("The action \"record\" is disabled; it is not triggered."));
    EXPECT_FALSE(mManager.invoke(QStringLiteral("record")));
    HmiTest::expectWarning(QStringLiteral("The action \"hang up\" is unknown; it is not triggered."));
    EXPECT_FALSE(mManager.invoke(QStringLiteral("hang up")));
    EXPECT_EQ(mTriggered, QStringList{QStringLiteral("dial")});
}

TEST_F(Actions, TakesTheArgumentsOfAScript)
{
    QJSEngine engine;
    QQmlEngine::setObjectOwnership(&mManager, QQmlEngine::CppOwnership);
    engine.globalObject().setProperty(QStringLiteral("actions"), engine.newQObject(&mManager));
    EXPECT_TRUE(
        engine.evaluate(QStringLiteral("actions.invoke('dial', { number: '742', tries: [1, 2] })")).toBool());
    EXPECT_EQ(mArguments, (QVariantMap{{QStringLiteral("number"), QStringLiteral("742")},
                                       {QStringLiteral("tries"), QVariantList{1, 2}}}));
    EXPECT_TRUE(engine.evaluate(QStringLiteral("actions.invoke('dial')")).toBool());
    EXPECT_TRUE(mArguments.isEmpty());
    EXPECT_TRUE(engine.evaluate(QStringLiteral("actions.actions[2].enabled === false")).toBool());
}

TEST_F(Actions, SignalsOnlyRealChanges)
{
    EXPECT_TRUE(mManager.setEnabled(QStringLiteral("record"), false));
    mManager.removeAction(QStringLiteral("hang up"));
    HmiTest::expectWarning(QStringLiteral("There is no action \"hang up\" to enable or disable."));
    EXPECT_FALSE(mManager.setEnabled(QStringLiteral("hang up"), true));
    HmiTest::expectWarning(
        QStringLiteral("The action name \"record\" is empty or taken; the action is not added."));
    EXPECT_FALSE(mManager.addAction(QStringLiteral("record"), true));
    EXPECT_EQ(mChanges, 0);

    EXPECT_TRUE(mManager.setEnabled(QStringLiteral("record"), true));
    EXPECT_TRUE(mManager.isEnabled(QStringLiteral("record")));
    mManager.removeAction(QStringLiteral("record"));
    EXPECT_FALSE(mManager.isEnabled(QStringLiteral("record")));
    EXPECT_EQ(mChanges, 2);
}
