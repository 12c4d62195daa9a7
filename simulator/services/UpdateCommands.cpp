#include <simulator/services/UpdateCommands.h>

#include <simulator/Console.h>
#include <simulator/services/SignalWords.h>
#include <simulator/services/UpdateService.h>

namespace Hmi::Simulator {

static constexpr double MaximumBandwidth = 1e12; ///< bytes per second
static constexpr int MaximumPace = 3600000;      ///< milliseconds

UpdateCommands::UpdateCommands(UpdateService& aService, CommandTable& aCommands) : mService(aService)
{
    const auto add = [&](const char* aName, const QStringList& aArguments, const char* aPurpose,
                         void (UpdateCommands::*aRun)(const QStringList&)) {
        aCommands.add({{QStringLiteral("update ") + QString::fromLatin1(aName), aArguments,
                        QString::fromLatin1(aPurpose),
                        [this, aRun](const QStringList& aWords) { (this->*aRun)(aWords); }}});
    };
    const QString url = QStringLiteral("URL");
    add("offer", {url, QStringLiteral("SIZE"), QStringLiteral("VERSION")},
        "offers an update of so many bytes", &UpdateCommands::offer);
    add("withdraw", {url}, "takes an offer back, and ends its download", &UpdateCommands::withdraw);
    add("bandwidth", {QStringLiteral("BYTES_PER_SECOND")}, "how fast downloads are, from now on",
        &UpdateCommands::setBandwidth);
    add("pace", {QStringLiteral("MILLISECONDS")}, "how long each phase of later installations takes",
        &UpdateCommands::setPace);
    add("fail", {QStringLiteral("[STATUS]")}, "lets the running or else the next installation fail",
        &UpdateCommands::fail);
    add("auto-install", {QStringLiteral("PATH")}, "says that an installation comes by itself",
        &UpdateCommands::announceInstallation);
    add("auto-reboot", {}, "says that a restart comes by itself", &UpdateCommands::announceReboot);
    add("state", {}, "shows offers, download, downloaded updates and installation",
        &UpdateCommands::showState);
}

void UpdateCommands::offer(const QStringList& aArguments)
{
    bool isSize = false;
    const qulonglong size = aArguments[1].toULongLong(&isSize);
    const std::optional<QString> version = SignalWords::toText(aArguments[2]);
    if (!isSize || !version)
        return CommandTable::refuse(
            QStringLiteral("'update offer' takes a whole number of bytes, and quotes that close"));
    mService.offer({aArguments[0], {size, *version}});
    Console::print(QStringLiteral("offered %1 %2").arg(aArguments[0]).arg(size));
}

void UpdateCommands::withdraw(const QStringList& aArguments)
{
    if (mService.withdraw(aArguments[0]))
        Console::print(QStringLiteral("withdrawn ") + aArguments[0]);
    else
        CommandTable::refuse(QStringLiteral("there is no update '%1' to download").arg(aArguments[0]));
}

void UpdateCommands::setBandwidth(const QStringList& aArguments)
{
    const double bandwidth = aArguments[0].toDouble();
    if (!(bandwidth >= 1 && bandwidth <= MaximumBandwidth))
        return CommandTable::refuse(QStringLiteral("'update bandwidth' takes 1 to %1 bytes per second")
                                        .arg(MaximumBandwidth, 0, 'f', 0));
    mService.setBandwidth(bandwidth);
    Console::print(QStringLiteral("bandwidth ") + aArguments[0]);
}

void UpdateCommands::setPace(const QStringList& aArguments)
{
    bool isNumber = false;
    const int pace = aArguments[0].toInt(&isNumber);
    if (!isNumber || pace < 0 || pace > MaximumPace)
        return CommandTable::refuse(
            QStringLiteral("'update pace' takes 0 to %1 milliseconds").arg(MaximumPace));
    mService.setPace(pace);
    Console::print(QStringLiteral("pace %1").arg(pace));
}

void UpdateCommands::fail(const QStringList& aArguments)
{
    const QString status = aArguments.value(0, QStringLiteral("failed on demand"));
    mService.fail(status);
    Console::print(QStringLiteral("fails ") + status);
}

void UpdateCommands::announceInstallation(const QStringList& aArguments)
{
    mService.emitSignal(QStringLiteral("AutoInstallPending"), {aArguments[0]});
    Console::print(QStringLiteral("signalled AutoInstallPending ") + SignalWords::toWords({aArguments[0]}));
}

void UpdateCommands::announceReboot(const QStringList&)
{
    mService.emitSignal(QStringLiteral("AutoRebootPending"), {});
    Console::print(QStringLiteral("signalled AutoRebootPending"));
}

void UpdateCommands::showState(const QStringList&)
{
    for (const UpdateService::Offer& offer : mService.getOffers())
        Console::print(QStringLiteral("offer %1 %2 ").arg(offer.url).arg(offer.info.size) +
                       SignalWords::toWords({offer.info.version}));
    const Progress& download = mService.getDownload();
    if (download.isUnderWay())
        Console::print(
            QStringLiteral("download %1 %2 ").arg(mService.getDownloadUrl()).arg(download.getPercent()) +
            (download.isPaused() ? QStringLiteral("paused") : QStringLiteral("running")));
    for (const QString& path : mService.getAvailable())
        Console::print(QStringLiteral("available ") + path);
    const Progress& installation = mService.getInstallation();
    if (installation.isUnderWay())
        Console::print(QStringLiteral("installation %1 %2 %3")
                           .arg(mService.getInstallationPath())
                           .arg(mService.getPhase())
                           .arg(installation.getPercent()));
    Console::print(QStringLiteral("updates %1").arg(mService.getOffers().size()));
}

} // namespace Hmi::Simulator
