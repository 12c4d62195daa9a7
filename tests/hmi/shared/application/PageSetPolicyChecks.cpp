#include <gtest/gtest.h>

#include <hmi/shared/application/PageSetPolicyBase.h>

using Hmi::Shared::PageSetPolicyBase;

namespace {

class ProductPolicy : public PageSetPolicyBase
{
public:
    using PageSetPolicyBase::PageSetPolicyBase;
    bool loadPageSet() override
    {
        setPlaceholder(QStringLiteral("region"), QStringLiteral("eu"));
        return false;
    }
};

} // namespace

TEST(PageSetPolicy, NamesItsPagesAndLoadsNothingUnlessAProductDoes)
{
    QObject parent;
    auto* const product = new ProductPolicy(&parent, QStringLiteral("TestPageSet"));
    PageSetPolicyBase base;
    EXPECT_EQ(base.getPageSet(), QString());
    EXPECT_TRUE(!base.hasAdditionalPages() && base.loadPageSet() && base.setUpTheme());
    EXPECT_TRUE(base.getPlaceholders().isEmpty());

    PageSetPolicyBase& policy = *product;
    EXPECT_EQ(policy.getPageSet(), QStringLiteral("TestPageSet"));
    EXPECT_TRUE(!policy.loadPageSet() && policy.setUpTheme());
    EXPECT_EQ(policy.getPlaceholders().value(QStringLiteral("region")), QStringLiteral("eu"));
}
