#include <hmi/core/models/ObjectListModelT.h>

#include <QAbstractItemModelTester>
#include <QCoreApplication>
#include <QPointer>
#include <gtest/gtest.h>

namespace {

struct Lamp : QObject
{
    Q_OBJECT
    Q_PROPERTY(QString name MEMBER name CONSTANT)
    Q_PROPERTY(bool lit MEMBER lit NOTIFY litChanged)
    Q_PROPERTY(int power MEMBER power)

public:
    explicit Lamp(char aName) : name(QLatin1Char(aName)) {}
    const QString name;
    bool lit = false;
    int power = 0;
signals:
    void litChanged(bool aLit);
};

struct LampList : testing::Test
{
    enum Role { Object = Hmi::Core::ObjectListModelBase::ModelDataRole, Name, Lit, Power };

    LampList()
    {
        for (const char name : {'a', 'b', 'c', 'd'})
            EXPECT_TRUE(list->append(new Lamp(name)));
        QObject::connect(list.get(), &Hmi::Core::ObjectListModelBase::countChanged, [this] { ++counts; });
        QObject::connect(list.get(), &QAbstractItemModel::dataChanged, [this](auto first, auto, auto roles) {
            changes += QStringLiteral("%1:%2 ").arg(first.row()).arg(roles.value(0) - Object);
        });
    }

    std::string names() const
    {
        QString all;
        for (const Lamp* lamp : *list)
            all += lamp->name;
        return all.toStdString();
    }

    using List = Hmi::Core::ObjectListModelT<Lamp*>;
    std::unique_ptr<List> list = std::make_unique<List>();
    // Its complaints are warnings, none of which a check expects.
    QAbstractItemModelTester tester{list.get(), QAbstractItemModelTester::FailureReportingMode::Warning};
    int counts = 0;
    QString changes;
};

} // namespace

TEST_F(LampList, IsReadAndWrittenByRoles)
{
    const QHash<int, QByteArray> roles{{Object, "modelData"}, {Name, "name"}, {Lit, "lit"}, {Power, "power"}};
    EXPECT_EQ(list->roleNames(), roles);
    const QModelIndex third = list->index(2);
    EXPECT_EQ(third.data(Object).value<QObject*>(), list->at(2));
    EXPECT_EQ(third.data(Name).toString(), QLatin1String("c"));
    EXPECT_FALSE(third.data(Power + 1).isValid() || third.data(Qt::DisplayRole).isValid());
    for (const auto& [role, accepted] : {std::pair(Lit, true), {Lit, true}, {Power, true}, {Object, false}})
        EXPECT_EQ(list->setData(third, true, role), accepted) << role;
    EXPECT_FALSE(list->setData(QModelIndex(), true, Lit));
    EXPECT_TRUE(list->at(2)->lit && list->at(2)->power == 1 && list->move(2, 0));
    list->at(0)->setProperty("lit", false);
    EXPECT_EQ(changes, QLatin1String("2:2 2:3 0:2 "));
}

TEST_F(LampList, OwnsWhatIsInItAndRefusesWhatCannotBe)
{
    Lamp stranger('s');
    EXPECT_FALSE(list->append(nullptr) || list->append(list->at(0)) || list->insert(5, &stranger) ||
                 list->insert(-1, &stranger) || list->remove(4) || list->move(0, 4) || list->move(-1, 0));
    EXPECT_TRUE(!list->at(4) && !list->at(-1) && !list->take(4) && list->indexOf(&stranger) == -1);
    EXPECT_FALSE(stranger.parent());
    EXPECT_EQ(names() + std::to_string(counts), "abcd0");

    const std::unique_ptr<Lamp> taken(list->take(1));
    emit taken->litChanged(true);
    const QPointer<Lamp> removed = list->at(1);
    EXPECT_TRUE(list->remove(1) && removed && !taken->parent());
    QCoreApplication::sendPostedEvents(removed, QEvent::DeferredDelete);
    EXPECT_EQ(names() + std::to_string(counts), "ad2");
    const QPointer<Lamp> last = list->at(1);
    list.reset();
    EXPECT_FALSE(last || removed);
    EXPECT_EQ(changes, QString());
}

TEST_F(LampList, MovesInBothDirectionsAndIsSearched)
{
    for (const auto& [from, to, expected] : {std::tuple(0, 3, "bcda"), {3, 0, "abcd"}, {1, 2, "acbd"}}) {
        EXPECT_TRUE(list->move(from, to));
        EXPECT_EQ(names(), expected);
    }
    EXPECT_EQ(list->indexOf(list->find([](const Lamp* lamp) { return lamp->name == QLatin1Char('c'); })), 1);
    EXPECT_EQ(list->find([](const Lamp*) { return false; }), nullptr);
}

TEST_F(LampList, LosesObjectsThatAreDeletedElsewhereAndWhileTheyTell)
{
    QVariant seen = 0;
    QObject::connect(list.get(), &QAbstractItemModel::rowsAboutToBeRemoved,
                     [&](const QModelIndex&, int row) { seen = list->index(row).data(Name); });
    delete list->at(1);
    EXPECT_FALSE(seen.isValid());
    QObject::connect(list.get(), &QAbstractItemModel::dataChanged,
                     [&](const QModelIndex& index) { list->remove(index.row()); });
    list->setData(list->index(2), true, Lit);
    EXPECT_EQ(names(), "ac");
    const QPointer<Lamp> cleared = list->at(0);
    list->clear();
    list->clear();
    QCoreApplication::sendPostedEvents(cleared, QEvent::DeferredDelete);
    EXPECT_TRUE(!cleared && list->rowCount() == 0 && counts == 3);
}

#include "ObjectListModelChecks.moc"
