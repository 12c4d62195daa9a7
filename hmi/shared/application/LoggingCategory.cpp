#include <hmi/shared/application/LoggingCategory.h>

namespace Hmi::Shared {

Q_LOGGING_CATEGORY(hmiShared, "hmi.shared")

} // namespace Hmi::Shared
