#include <hmi/shared/application/MeasurementRecording.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <exception>
#include <utility>

#include <hmi/shared/application/LoggingCategory.h>

namespace Hmi::Shared {

static constexpr char sDirectoryVariable[] = "KORVEX_UNIT_TEST_RW_PATH";

/** "Startup" of "ApplicationStartup". */
static QString phaseOf(const QString& aName)
{
    const QLatin1String prefix("Application");
    return aName.startsWith(prefix) ? aName.mid(prefix.size()) : aName;
}

MeasurementRecording::MeasurementRecording(const QString& aDirectory, const Metron::EventRing& aEvents) :
    mDirectory(QDir::cleanPath(QDir().absoluteFilePath(aDirectory))), mCapture(aEvents)
{}

QString MeasurementRecording::filePath(const QString& aFileName) const
{
    return QDir(mDirectory).filePath(aFileName);
}

void MeasurementRecording::prepare() const
{
    const QString nativePath = QDir::toNativeSeparators(mDirectory);
    if (!QDir().mkpath(mDirectory))
        qCWarning(
            hmiShared,
            "The measurement directory %s cannot be made; start-up and shutdown are not measured. Check "
            "its parent's access rights.",
            qUtf8Printable(nativePath));
    qputenv(sDirectoryVariable, QFile::encodeName(nativePath));
}

bool MeasurementRecording::attempt(const std::function<bool()>& aStep)
{
    try {
        return aStep();
    } catch (const std::exception& exception) {
        qCWarning(hmiShared, "Metron threw an exception:%s", exception.what());
        return false;
    }
}

bool MeasurementRecording::begin(const QString& aName)
{
    end();
    const QString descriptor = filePath(aName + QStringLiteral(".json"));
    qCInfo(hmiShared, "Checking for %s measurement descriptor: %s", qUtf8Printable(phaseOf(aName).toLower()),
           qUtf8Printable(descriptor));
    if (QFileInfo::exists(descriptor) && attempt([&] { return start(aName, descriptor); }))
        mRunning = aName;
    return !mRunning.isEmpty();
}

/** The start-up has begun when its recording can be: the configuration says where its descriptor is. */
static Metron::PerformanceCapture::Since sinceOf(const QString& aName)
{
    using Since = Metron::PerformanceCapture::Since;
    return phaseOf(aName) == QLatin1String("Startup") ? Since::FirstEvent : Since::Now;
}

bool MeasurementRecording::start(const QString& aName, const QString& aDescriptor)
{
    if (const unsigned long code = mCapture.LoadDescriptorFile(aDescriptor)) {
        qCWarning(hmiShared, "LoadDescriptorFile (%s) returned: %lu", qUtf8Printable(aDescriptor), code);
    } else if (const unsigned long startCode = mCapture.StartRecording(aName, sinceOf(aName))) {
        qCWarning(hmiShared, "StartRecording returned: %lu", startCode);
    } else {
        qCInfo(hmiShared, "metronBegin%sRecording", qUtf8Printable(phaseOf(aName)));
        return true;
    }
    qCInfo(hmiShared, "%s", qUtf8Printable(mCapture.getReason()));
    return false;
}

void MeasurementRecording::end()
{
    const QString name = std::exchange(mRunning, QString());
    if (!name.isEmpty())
        attempt([&] { return save(name); });
}

bool MeasurementRecording::save(const QString& aName)
{
    const QString phase = phaseOf(aName);
    const QString path = filePath(aName + QStringLiteral("_res.json"));
    qCInfo(hmiShared, "metronEnd%sRecording saving to: %s", qUtf8Printable(phase), qUtf8Printable(path));
    if (const unsigned long code = mCapture.CaptureResults())
        qCWarning(hmiShared, "Error capturing %s results: %lu", qUtf8Printable(phase.toLower()), code);
    else if (const unsigned long saveCode = mCapture.SaveTestResultJson(path))
        qCWarning(hmiShared, "SaveTestResultJson(%s) returned: %lu", qUtf8Printable(path), saveCode);
    else
        return true;
    qCInfo(hmiShared, "%s", qUtf8Printable(mCapture.getReason()));
    return false;
}

} // namespace Hmi::Shared
