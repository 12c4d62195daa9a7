#include <hmi/shared/application/PageSetPolicyBase.h>

namespace Hmi::Shared {

PageSetPolicyBase::PageSetPolicyBase(QObject* aParent, const QString& aPageSet) :
    QObject(aParent), mPageSet(aPageSet)
{}

} // namespace Hmi::Shared
