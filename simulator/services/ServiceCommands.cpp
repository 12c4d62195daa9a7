#include <simulator/services/ServiceCommands.h>

#include <algorithm>

#include <simulator/Console.h>
#include <simulator/services/BusService.h>
#include <simulator/services/SignalWords.h>

namespace Hmi::Simulator {

static constexpr int MaximumDelay = 60000; ///< milliseconds

static void emitSignal(BusService& aService, const QStringList& aArguments)
{
    const QMetaMethod signal = aService.findSignal(aArguments[0]);
    if (!signal.isValid())
        return CommandTable::refuse(
            QStringLiteral("%1 has no signal '%2'").arg(aService.getName(), aArguments[0]));
    const auto values = SignalWords::toArguments(signal, aArguments.value(1));
    if (!values)
        return CommandTable::refuse(
            QStringLiteral("the values are to be those of %1, lists in the form [\"one\",\"two\"]")
                .arg(QString::fromLatin1(signal.methodSignature())));
    aService.emitSignal(aArguments[0], *values);
    Console::print(
        QStringLiteral("signalled %1 %2").arg(aArguments[0], SignalWords::toWords(*values)).trimmed());
}

ServiceCommands::ServiceCommands(const Services& aServices, ServiceFaults& aFaults, CommandTable& aCommands) :
    mServices(aServices), mFaults(aFaults)
{
    const auto add = [&](const char* aName, const QStringList& aArguments, const char* aPurpose,
                         void (ServiceCommands::*aRun)(const QStringList&)) {
        aCommands.add({{QStringLiteral("service ") + QString::fromLatin1(aName), aArguments,
                        QString::fromLatin1(aPurpose),
                        [this, aRun](const QStringList& aWords) { (this->*aRun)(aWords); }}});
    };
    add("vanish", {QStringLiteral("NAME")}, "a service leaves the bus", &ServiceCommands::vanish);
    add("return", {QStringLiteral("NAME")}, "it comes back", &ServiceCommands::comeBack);
    add("late", {QStringLiteral("MILLISECONDS")}, "delays all answers from now on", &ServiceCommands::delay);
    addFault(aCommands, "mute", "loses all calls", ServiceFaults::Fault::Mute);
    addFault(aCommands, "refuse", "answers all calls with an error", ServiceFaults::Fault::Refuse);
    addFault(aCommands, "garble", "answers all calls with wrong types", ServiceFaults::Fault::Garble);
    add("honest", {}, "ends all these, and sends what waits", &ServiceCommands::beHonest);
    const std::map<QString, QString> prefixes = {{QStringLiteral("update"), QStringLiteral("update")},
                                                 {QStringLiteral("notifications"), QStringLiteral("notify")}};
    for (const auto& [word, service] : mServices) {
        if (const auto prefix = prefixes.find(word); prefix != prefixes.end())
            aCommands.add({{prefix->second + QStringLiteral(" signal"),
                            {QStringLiteral("NAME"), QStringLiteral("[ARGUMENTS]")},
                            QStringLiteral("sends a signal of the interface with any values"),
                            [one = service](const QStringList& aWords) { emitSignal(*one, aWords); }}});
    }
}

void ServiceCommands::addFault(CommandTable& aCommands, const char* aName, const char* aPurpose,
                               ServiceFaults::Fault aFault)
{
    const QString name = QStringLiteral("service ") + QString::fromLatin1(aName);
    aCommands.add({{name, {}, QString::fromLatin1(aPurpose), [this, name, aFault](const QStringList&) {
                        mFaults.setFault(aFault);
                        Console::print(name);
                    }}});
}

BusService* ServiceCommands::find(const QString& aName) const
{
    const auto service = std::find_if(mServices.begin(), mServices.end(), [&](const auto& aOne) {
        return aOne.first == aName || aOne.second->getName() == aName;
    });
    if (service != mServices.end())
        return service->second;
    CommandTable::refuse(QStringLiteral("'%1' is not among the services").arg(aName));
    return nullptr;
}

void ServiceCommands::vanish(const QStringList& aArguments)
{
    BusService* const service = find(aArguments[0]);
    if (!service)
        return;
    service->release();
    Console::print(QStringLiteral("vanished ") + service->getName());
}

void ServiceCommands::comeBack(const QStringList& aArguments)
{
    BusService* const service = find(aArguments[0]);
    if (!service)
        return;
    if (service->take())
        Console::print(QStringLiteral("serving ") + service->getName());
    else
        CommandTable::refuse(QStringLiteral("the bus does not give the name %1").arg(service->getName()));
}

void ServiceCommands::delay(const QStringList& aArguments)
{
    bool isNumber = false;
    const int milliseconds = aArguments[0].toInt(&isNumber);
    if (!isNumber || milliseconds < 0 || milliseconds > MaximumDelay)
        return CommandTable::refuse(
            QStringLiteral("'service late' takes 0 to %1 milliseconds").arg(MaximumDelay));
    mFaults.setDelay(milliseconds);
    Console::print(QStringLiteral("service late %1").arg(milliseconds));
}

void ServiceCommands::beHonest(const QStringList&)
{
    mFaults.setFault(ServiceFaults::Fault::None);
    mFaults.setDelay(0);
    Console::print(QStringLiteral("service honest"));
}

} // namespace Hmi::Simulator
