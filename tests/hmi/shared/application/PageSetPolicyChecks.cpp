#include <gtest/gtest.h>

#include <hmi/shared/application/PageSetPolicyBase.h>

TEST(PageSetPolicy, SucceedsWithNothingAndKeepsWhatAProductNames)
{
    struct Product : Hmi::Shared::PageSetPolicyBase
    {
        Product() : PageSetPolicyBase(nullptr, QStringLiteral("pages"))
        {
            setPlaceholder(QStringLiteral("region"), QStringLiteral("eu"));
        }
    } policy;
    EXPECT_TRUE(!policy.hasAdditionalPages() && policy.loadPageSet() && policy.setUpTheme());
    EXPECT_EQ(policy.getPageSet() + policy.getPlaceholders().value(QStringLiteral("region")),
              QStringLiteral("pageseu"));
}
