#include <platform/metron/PerformanceCapture.h>

#include <QFile>
#include <QSaveFile>
#include <algorithm>

#include <platform/metron/TraceDocument.h>

namespace Metron {

static QString threadName(int aThread)
{
    QFile file(QStringLiteral("/proc/self/task/%1/comm").arg(aThread));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll().trimmed()) : QString();
}

static QHash<int, QString> threadNames(const QVector<Event>& aEvents)
{
    QHash<int, QString> names;
    for (const Event& event : aEvents) {
        if (names.contains(event.thread))
            continue;
        const QString name = threadName(event.thread);
        if (!name.isEmpty())
            names.insert(event.thread, name);
    }
    return names;
}

unsigned long PerformanceCapture::finish(const CaptureFault& aFault)
{
    mReason = aFault.reason;
    return aFault.code;
}

unsigned long PerformanceCapture::LoadDescriptorFile(const QString& aPath)
{
    if (mFrom)
        return finish({AlreadyRecording,
                       QStringLiteral("The descriptor '%1' is not loaded: capture the results of the running "
                                      "recording '%2' first.")
                           .arg(aPath, mDescriptor->getName())});
    RecordingDescriptor descriptor;
    const CaptureFault fault = descriptor.load(aPath);
    if (fault.code == Success)
        mDescriptor = descriptor;
    return finish(fault);
}

unsigned long PerformanceCapture::StartRecording(const QString& aName, Since aSince)
{
    const QString refusal = QStringLiteral("The recording '%1' is not started: %2.").arg(aName);
    if (!mDescriptor)
        return finish({NoDescriptor, refusal.arg(QStringLiteral("load its descriptor first"))});
    if (mFrom)
        return finish(
            {AlreadyRecording, refusal.arg(QStringLiteral("one is running, capture its results first"))});
    if (mDescriptor->getName() != aName)
        return finish(
            {NotItsName,
             refusal.arg(QStringLiteral("its descriptor has the name '%1'").arg(mDescriptor->getName()))});
    mResults.reset();
    mFrom = aSince == Since::FirstEvent ? 0 : mEvents.position();
    return finish({});
}

Recording PerformanceCapture::recorded(std::uint32_t aFrom) const
{
    Recording recording;
    recording.name = mDescriptor->getName();
    const int raised = static_cast<int>(mEvents.position() - aFrom);
    const QVector<Event> read = mEvents.events(aFrom);
    recording.overwritten = std::max(0, raised - read.size());
    for (const Event& event : read) {
        if (mDescriptor->takes(event.name))
            recording.events.append(event);
    }
    recording.filteredOut = read.size() - recording.events.size();
    recording.overLimit = std::max(0, recording.events.size() - mDescriptor->getLimit());
    recording.events.remove(0, recording.overLimit);
    recording.threadNames = threadNames(recording.events);
    return recording;
}

unsigned long PerformanceCapture::CaptureResults()
{
    if (!mFrom)
        return finish(
            {NotRecording, QStringLiteral("There is nothing to capture: start a recording first.")});
    const Recording recording = recorded(*mFrom);
    mFrom.reset();
    if (recording.events.isEmpty())
        return finish(
            {NothingRecorded,
             QStringLiteral("The recording '%1' has no event, %2 were filtered out; check its filter.")
                 .arg(recording.name)
                 .arg(recording.filteredOut)});
    mResults = recording;
    return finish({});
}

unsigned long PerformanceCapture::SaveTestResultJson(const QString& aPath)
{
    if (!mResults)
        return finish({NoResults, QStringLiteral("'%1' is not written: capture results first.").arg(aPath)});
    const QByteArray content = TraceDocument(*mResults).toJson();
    QSaveFile file(aPath);
    // Without flush() commit() would not see that the rest of a short file found no room.
    if (file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.flush() &&
        file.commit())
        return finish({});
    return finish(
        {CannotWrite,
         QStringLiteral("'%1' is not written: %2. Check the folder, its access rights and free space.")
             .arg(aPath, file.errorString())});
}

} // namespace Metron
