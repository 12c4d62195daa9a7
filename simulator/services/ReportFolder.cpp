#include <simulator/services/ReportFolder.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QSaveFile>
#include <QXmlStreamWriter>

namespace Hmi::Simulator {

static const QString sFilter = QStringLiteral("bug-report-*.xml");

static void write(QIODevice& aDevice)
{
    const QString time = QDateTime::currentDateTimeUtc().toString(Qt::ISODate);
    QXmlStreamWriter xml(&aDevice);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeStartElement(QStringLiteral("ErrorReport"));
    xml.writeTextElement(QStringLiteral("ParserVersion"), QCoreApplication::applicationVersion());
    xml.writeTextElement(QStringLiteral("Product"), QStringLiteral("Head unit on a desk"));
    xml.writeTextElement(QStringLiteral("UnitId"), QSysInfo::machineHostName());
    xml.writeTextElement(QStringLiteral("ProcessName"), QCoreApplication::applicationName());
    xml.writeTextElement(QStringLiteral("Backtrace"), QStringLiteral("#0 none <made on demand>"));
    xml.writeTextElement(QStringLiteral("logfile"), QStringLiteral("Created on demand at ") + time);
    xml.writeTextElement(QStringLiteral("ShutdownInfo"), QStringLiteral("none"));
    xml.writeEndDocument();
}

static QString freePath(const QDir& aFolder)
{
    int number = 1;
    QString path;
    do
        path = aFolder.filePath(QString(sFilter).replace(QLatin1Char('*'), QString::number(number++)));
    while (QFile::exists(path));
    return path;
}

QString ReportFolder::create(QString& aError) const
{
    if (mFolder.isEmpty()) {
        aError = QStringLiteral("there is no folder for reports; name one with --reports");
        return QString();
    }
    QSaveFile file(freePath(mFolder));
    if (file.open(QIODevice::WriteOnly)) {
        write(file);
        if (file.flush() && file.commit())
            return file.fileName();
    }
    aError =
        QStringLiteral("the report '%1' cannot be written (%2)").arg(file.fileName(), file.errorString());
    return QString();
}

QStringList ReportFolder::getPaths() const
{
    QStringList paths;
    const QDir folder(mFolder);
    if (mFolder.isEmpty())
        return paths;
    const QStringList names = folder.entryList({sFilter}, QDir::Files, QDir::Name);
    for (const QString& name : names)
        paths += folder.filePath(name);
    return paths;
}

bool ReportFolder::clear() const
{
    bool done = true;
    const QStringList paths = getPaths();
    for (const QString& path : paths)
        done = QFile::remove(path) && done;
    return done;
}

} // namespace Hmi::Simulator
