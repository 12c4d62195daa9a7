// Lists the error reports of a folder; prints the nanoseconds and the growth of the greatest memory (kB).

#include <QCoreApplication>
#include <QFile>
#include <cstdio>

#include "Require.h"
#include "Times.h"
#include <hmi/shared/services/ErrorReportModel.h>

static long greatestMemory()
{
    QFile file(QStringLiteral("/proc/self/status"));
    require(file.open(QFile::ReadOnly), "reading the memory");
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray& line : lines)
        if (line.startsWith("VmHWM"))
            return line.simplified().split(' ').at(1).toLong();
    return -1;
}

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    require(argc == 2, "listing without a folder");
    const long before = greatestMemory();
    const double start = monotonicTime();
    const Hmi::Shared::ErrorReportModel model(QString::fromLocal8Bit(argv[1]), QString());
    const double time = monotonicTime() - start;
    require(model.getLength() > 0, "seeing the report");
    std::printf("time %.0f\nmemory %ld\n", time, greatestMemory() - before);
    return 0;
}
