#include <simulator/Console.h>

#include <QCoreApplication>
#include <cstdio>

namespace Hmi::Simulator {

static void printTo(std::FILE* aStream, const QString& aLine)
{
    std::fprintf(aStream, "%s\n", aLine.toUtf8().constData());
    std::fflush(aStream);
}

void Console::print(const QString& aLine) { printTo(stdout, aLine); }

void Console::printError(const QString& aLine)
{
    printTo(stderr, QCoreApplication::applicationName() + QStringLiteral(": ") + aLine);
}

} // namespace Hmi::Simulator
