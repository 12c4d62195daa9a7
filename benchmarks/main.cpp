#include <QCoreApplication>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    // The log files are written to the working directory.
    const QTemporaryDir folder;
    if (!QDir::setCurrent(folder.path()))
        return 1;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
