#include <gtest/gtest.h>
#include <memory>

#include <hmi/core/input/HighlightManager.h>

using Hmi::Core::HighlightManager;

TEST(HighlightManager, AnnouncesEachChangeOfTheCurrentItemOnce)
{
    HighlightManager manager(true);
    QVector<QObject*> announced;
    QObject::connect(&manager, &HighlightManager::currentItemChanged,
                     [&] { announced.append(manager.getCurrentItem()); });
    QObject::connect(&manager, &HighlightManager::enabledChanged,
                     [&] { EXPECT_EQ(manager.getCurrentItem(), nullptr); });
    QObject item;
    auto former = std::make_unique<QObject>();
    auto current = std::make_unique<QObject>();
    QObject* const formerItem = former.get();
    QObject* const currentItem = current.get();

    manager.setCurrentItem(formerItem);
    manager.setCurrentItem(currentItem);
    manager.setCurrentItem(currentItem);
    former.reset();
    EXPECT_EQ(announced, (QVector<QObject*>{formerItem, currentItem}));
    current.reset();
    manager.setCurrentItem(&item);
    manager.setEnabled(false);
    manager.setCurrentItem(&item);
    manager.setEnabled(true);
    EXPECT_EQ(announced, (QVector<QObject*>{formerItem, currentItem, nullptr, &item, nullptr}));
}
