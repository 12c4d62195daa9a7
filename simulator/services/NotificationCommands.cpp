#include <simulator/services/NotificationCommands.h>

#include <simulator/Console.h>
#include <simulator/services/NotificationService.h>
#include <simulator/services/SignalWords.h>

namespace Hmi::Simulator {

/** The arguments of a command on one notification, with the id in the place of "last". */
static QStringList withId(QStringList aArguments, int aLastId)
{
    if (aArguments[0] == QLatin1String("last"))
        aArguments[0] = QString::number(aLastId);
    return aArguments;
}

NotificationCommands::NotificationCommands(NotificationService& aService, CommandTable& aCommands) :
    mService(aService)
{
    using Run = void (NotificationCommands::*)(const QStringList&);
    const auto add = [&](const char* aName, const QStringList& aArguments, const char* aPurpose, Run aRun) {
        const bool takesId = aArguments.value(0) == QLatin1String("N");
        aCommands.add({{QStringLiteral("notify ") + QString::fromLatin1(aName), aArguments,
                        QString::fromLatin1(aPurpose), [this, aRun, takesId](const QStringList& aWords) {
                            (this->*aRun)(takesId ? withId(aWords, mService.getLastId()) : aWords);
                        }}});
    };
    const QString number = QStringLiteral("N");
    const QString latitude = QStringLiteral("LATITUDE");
    const QString longitude = QStringLiteral("LONGITUDE");
    add("add",
        {QStringLiteral("TYPE"), QStringLiteral("ID"), QLatin1Char('[') + latitude,
         longitude + QLatin1Char(']')},
        "adds a notification", &NotificationCommands::notify);
    add("dismiss", {number}, "removes a notification", &NotificationCommands::dismiss);
    add("show", {number}, "asks that it is shown", &NotificationCommands::show);
    add("move", {number, latitude, longitude}, "gives it another location", &NotificationCommands::move);
    add("priority", {number, QStringLiteral("P")}, "gives it a priority", &NotificationCommands::setPriority);
    add("list", {}, "shows all notifications", &NotificationCommands::list);
}

/** What it says where something was done, and otherwise what is wrong. */
static void answer(bool aDone, const QString& aWord, const QStringList& aArguments)
{
    const QString words = aArguments.join(QLatin1Char(' '));
    if (aDone)
        Console::print(aWord + QLatin1Char(' ') + words);
    else
        CommandTable::refuse(
            QStringLiteral("'%1' is not done: there is no such notification, or the words are "
                           "no number or location")
                .arg(words));
}

/** Degrees; not finite if they are none, which no service takes. */
static double degrees(const QString& aWord)
{
    bool isNumber = false;
    const double value = aWord.toDouble(&isNumber);
    return isNumber ? value : qQNaN();
}

void NotificationCommands::notify(const QStringList& aArguments)
{
    const bool hasLocation = aArguments.size() > 2;
    const int id = mService.AddNotification(aArguments[0], aArguments[1], hasLocation,
                                            hasLocation ? degrees(aArguments[2]) : 0,
                                            hasLocation ? degrees(aArguments.value(3)) : 0);
    if (id > 0)
        Console::print(QStringLiteral("added %1").arg(id));
    else
        CommandTable::refuse(
            QStringLiteral("the type '%1' is switched off, or the location is none").arg(aArguments[0]));
}

void NotificationCommands::dismiss(const QStringList& aArguments)
{
    answer(mService.DismissNotification(aArguments[0].toInt()), QStringLiteral("dismissed"), aArguments);
}

void NotificationCommands::show(const QStringList& aArguments)
{
    answer(mService.ShowNotification(aArguments[0].toInt()), QStringLiteral("shown"), aArguments);
}

void NotificationCommands::move(const QStringList& aArguments)
{
    answer(mService.UpdateNotificationLocation(aArguments[0].toInt(), true, degrees(aArguments[1]),
                                               degrees(aArguments[2])),
           QStringLiteral("moved"), aArguments);
}

void NotificationCommands::setPriority(const QStringList& aArguments)
{
    bool isNumber = false;
    const int priority = aArguments[1].toInt(&isNumber);
    answer(isNumber && mService.setPriority(aArguments[0].toInt(), priority), QStringLiteral("priority"),
           aArguments);
}

void NotificationCommands::list(const QStringList&)
{
    const auto& notifications = mService.getNotifications();
    for (auto one = notifications.begin(); one != notifications.end(); ++one) {
        QVariantList words = {one.key(), one->instance.priority, one->instance.notificationType,
                              one->instance.typeSpecificId};
        if (one->hasLocation)
            words += {one->latitude, one->longitude};
        Console::print(QStringLiteral("notification ") + SignalWords::toWords(words));
    }
    Console::print(QStringLiteral("notifications %1").arg(notifications.size()));
}

} // namespace Hmi::Simulator
