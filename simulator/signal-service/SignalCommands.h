#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

#include <simulator/signal-service/SignalServer.h>
#include <simulator/signal-service/SignalTable.h>

namespace Hmi::Simulator {

/** The words that steer the signal service. Each line is answered with lines on standard output. */
class SignalCommands : public QObject
{
    Q_OBJECT

public:
    SignalCommands(SignalTable& aTable, SignalServer& aServer, QObject* aParent = nullptr);

    /** What cannot be done is answered with one line "error ...", and changes nothing. */
    void execute(const QString& aLine);

signals:
    void quitRequested();

private:
    struct Command
    {
        QString name;
        QStringList arguments; ///< the last one takes the rest of the line
        QString purpose;
        void (SignalCommands::*run)(const QStringList& aArguments);
    };

    static const std::vector<Command>& getCommands();

    void set(const QStringList& aArguments);
    void get(const QStringList& aArguments);
    void list(const QStringList& aArguments);
    void drop(const QStringList& aArguments);
    void stall(const QStringList& aArguments);
    void garbage(const QStringList& aArguments);
    void late(const QStringList& aArguments);
    void quit(const QStringList& aArguments);
    void help(const QStringList& aArguments);

    SignalTable& mTable;
    SignalServer& mServer;
};

} // namespace Hmi::Simulator
