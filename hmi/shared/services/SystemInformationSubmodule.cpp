#include <hmi/shared/services/SystemInformationSubmodule.h>

namespace Hmi::Shared {

SystemInformationSubmodule::SystemInformationSubmodule(const QString& aName, const QString& aSha,
                                                       const QString& aGitDescribe, QObject* aParent) :
    QObject(aParent), mName(aName), mSha(aSha), mGitDescribe(aGitDescribe)
{}

} // namespace Hmi::Shared
