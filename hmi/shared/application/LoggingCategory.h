#pragma once

#include <QLoggingCategory>

namespace Hmi::Shared {

/** The category "hmi.shared" of every message of this library: qCWarning(hmiShared) << ... Any thread. */
Q_DECL_EXPORT Q_DECLARE_LOGGING_CATEGORY(hmiShared)

} // namespace Hmi::Shared
