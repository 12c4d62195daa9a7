#include <hmi/shared/services/ErrorReportInfo.h>

#include <hmi/shared/services/ErrorReport.h>

namespace Hmi::Shared {

ErrorReportInfo::ErrorReportInfo(const ErrorReport& aReport, QObject* aParent) :
    QObject(aParent),
    mBacktrace(aReport.getBacktrace()),
    mLogFile(aReport.getLogFile()),
    mParserVersion(aReport.getParserVersion()),
    mPath(aReport.getPath()),
    mProcessName(aReport.getProcessName()),
    mProduct(aReport.getProduct()),
    mUnitId(aReport.getUnitId())
{}

void ErrorReportInfo::setSelected(bool aSelected)
{
    if (aSelected == mSelected)
        return;
    mSelected = aSelected;
    emit selectedChanged();
}

} // namespace Hmi::Shared
