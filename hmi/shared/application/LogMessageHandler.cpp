#include <hmi/shared/application/LogMessageHandler.h>

#include <QCoreApplication>
#include <QDir>
#include <QLatin1String>
#include <QMutexLocker>
#include <QThread>
#include <atomic>
#include <cstdio>
#include <cstdlib>

#include <hmi/shared/application/LocalTimeZoneCache.h>
#include <hmi/shared/application/LogFileRotation.h>
#include <hmi/shared/application/LoggingCategory.h>

namespace Hmi::Shared {

namespace {

const QLatin1String LinePattern("%{time hh:mm:ss:zzz} "
                                "%{if-debug}D%{endif}%{if-info}I%{endif}%{if-warning}W%{endif}"
                                "%{if-critical}E%{endif}%{if-fatal}F%{endif}"
                                "%{if-category} %{category}:%{endif} %{message}");
const QLatin1String QtDefaultPattern("%{if-category}%{category}: %{endif}%{message}");

std::atomic<LogMessageHandler*> sActive{nullptr};
std::atomic<int> sWriters{0};
std::atomic<QtMessageHandler> sPrevious{nullptr};

/** Keeps the active handler alive while a line is written. */
class Lease
{
public:
    Lease()
    {
        if (!sActive.load())
            return;
        ++sWriters;
        mHandler = sActive.load();
        if (!mHandler)
            --sWriters;
    }
    ~Lease()
    {
        if (mHandler)
            --sWriters;
    }
    Q_DISABLE_COPY_MOVE(Lease)

    LogMessageHandler* get() const { return mHandler; }

private:
    LogMessageHandler* mHandler = nullptr;
};

bool writeToFile(QtMsgType aType, const QMessageLogContext& aContext, const QString& aText)
{
    const Lease lease;
    return lease.get() && lease.get()->writeLine(qFormatLogMessage(aType, aContext, aText));
}

void passOn(QtMsgType aType, const QMessageLogContext& aContext, const QString& aText)
{
    // The previous handler may itself end here.
    thread_local bool sPassingOn = false;
    const QtMessageHandler previous = sPrevious;
    if (!previous || sPassingOn) {
        fprintf(stderr, "%s\n", qUtf8Printable(qFormatLogMessage(aType, aContext, aText)));
        return;
    }
    sPassingOn = true;
    previous(aType, aContext, aText);
    sPassingOn = false;
}

/**
 * Ends file logging at process exit before Qt's own statics go, without which other threads cannot format a
 * line. Those statics are created by the first line.
 */
void endBeforeQtAtExit()
{
    qFormatLogMessage(QtInfoMsg, QMessageLogContext(), QString());
    static const int sRegistered = std::atexit([] { delete sActive.load(); });
    Q_UNUSED(sRegistered)
}

} // namespace

LogMessageHandler::LogMessageHandler() = default;

LogMessageHandler::~LogMessageHandler()
{
    if (sActive != this)
        return;
    const QtMessageHandler installed = qInstallMessageHandler(sPrevious);
    if (installed != &handleMessage)
        qInstallMessageHandler(installed);
    sActive = nullptr;
    while (sWriters != 0)
        QThread::yieldCurrentThread();
    qSetMessagePattern(QtDefaultPattern);
}

bool LogMessageHandler::startFileLogging()
{
    if (mFile.isOpen())
        return true;
    const QDir folder = QDir::current();
    const LogFileRotation rotation(folder, QCoreApplication::applicationName());
    rotation.rotate();
    // Never an existing file: one that the rotation could not move keeps its content.
    if (!mFile.create(folder.absoluteFilePath(rotation.currentFileName()))) {
        qCWarning(hmiShared, "Failed to open log file: %s", qUtf8Printable(rotation.currentFileName()));
        return false;
    }
    mStream.setDevice(&mFile);
    mStream.setCodec("UTF-8");
    install();
    return true;
}

void LogMessageHandler::install()
{
    mTimeZone = std::make_unique<LocalTimeZoneCache>();
    qSetMessagePattern(LinePattern);
    endBeforeQtAtExit();
    sActive = this;
    sPrevious = qInstallMessageHandler(&handleMessage);
}

bool LogMessageHandler::writeLine(const QString& aLine)
{
    const QMutexLocker lock(&mMutex);
    if (!mFile.isOpen())
        return false;
    mStream << aLine << Qt::endl;
    const bool failed = mStream.status() != QTextStream::Ok;
    mStream.resetStatus();
    if (failed && !mFailing)
        reportFailure();
    mFailing = failed;
    return !failed;
}

void LogMessageHandler::reportFailure() const
{
    fprintf(stderr,
            "Cannot write to log file %s: %s. Until that works again, messages go where they went before.\n",
            qUtf8Printable(mFile.fileName()), qUtf8Printable(mFile.errorString()));
}

void LogMessageHandler::handleMessage(QtMsgType aType, const QMessageLogContext& aContext,
                                      const QString& aText)
{
    if (!writeToFile(aType, aContext, aText))
        passOn(aType, aContext, aText);
}

void LogMessageHandler::discardMessage(QtMsgType, const QMessageLogContext&, const QString&) {}

} // namespace Hmi::Shared
