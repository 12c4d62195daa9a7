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
    QObject item;
    auto former = std::make_unique<QObject>();
    auto current = std::make_unique<QObject>();
    const QVector<QObject*> expected{former.get(), current.get(), nullptr, &item, nullptr};

    manager.setCurrentItem(former.get());
    manager.setCurrentItem(current.get());
    manager.setCurrentItem(current.get());
    former.reset();
    current.reset();
    manager.setCurrentItem(&item);
    manager.setEnabled(false);
    manager.setCurrentItem(&item);
    manager.setEnabled(true);
    EXPECT_EQ(announced, expected);
}
