#pragma once

#include <QMutex>
#include <QString>
#include <QTextStream>
#include <QtGlobal>
#include <memory>

#include <hmi/core/foundation/SingletonCpp.h>
#include <hmi/shared/application/LogFile.h>

namespace Hmi::Shared {

class LocalTimeZoneCache;

/**
 * Writes the messages of all levels and threads to `<application name>_1.log` in the working folder, and
 * keeps the files of the four runs before (LogFileRotation). Each message is one line of UTF-8, on its way to
 * the file when the logging call returns: time of day, level D, I, W, E or F, category, text.
 *
 * Created and started on the main thread, at start-up, before other threads run: starting sets the process's
 * message pattern and may set its TZ (LocalTimeZoneCache). Deleting the object, at process exit at the
 * latest, waits for the lines being written and puts the previous handler and Qt's default pattern back;
 * other threads may be logging then.
 *
 * When a line cannot be written (full disk) one note on standard error names file and reason, and lines go to
 * the previous handler until writing works again. The file keeps whole lines only.
 */
class Q_DECL_EXPORT LogMessageHandler : public Hmi::Core::SingletonCpp<LogMessageHandler>
{
    Q_OBJECT
    friend class Hmi::Core::SingletonCpp<LogMessageHandler>;

public:
    ~LogMessageHandler() override;

    /**
     * Rotates the files, opens a new one and installs handleMessage(). Once this has succeeded, further calls
     * do nothing. When the file cannot be created, or its name is still taken after the rotation, a warning
     * names it, the previous handler stays and false is returned.
     */
    bool startFileLogging();

    /** Appends one line, given without its line end. False, with the file unchanged, when that fails. Any
     * thread. */
    bool writeLine(const QString& aLine);

    /**
     * For qInstallMessageHandler(). Any thread, also before the start and after the end of file logging, when
     * messages pass to the handler that was installed before, if any, or to standard error.
     */
    static void handleMessage(QtMsgType aType, const QMessageLogContext& aContext, const QString& aText);

    /** For qInstallMessageHandler(): drops every message. */
    static void discardMessage(QtMsgType aType, const QMessageLogContext& aContext, const QString& aText);

private:
    LogMessageHandler();

    void install();
    void reportFailure() const;

    LogFile mFile;
    QMutex mMutex; ///< guards the file and the stream while a line is written
    QTextStream mStream;
    bool mFailing = false;
    std::unique_ptr<LocalTimeZoneCache> mTimeZone;
};

} // namespace Hmi::Shared
