#include "Starvation.h"

#include <QDir>
#include <QFile>

double starvedTime(const QString& aThread)
{
    QFile file(aThread + QStringLiteral("/schedstat"));
    return file.open(QFile::ReadOnly) ? file.readAll().split(' ').value(1).toDouble() / 1e6 : 0;
}

double starvedTime(const std::vector<qint64>& aProcesses)
{
    double starved = 0;
    for (const qint64 process : aProcesses) {
        const QDir threads(QStringLiteral("/proc/%1/task").arg(process));
        const QStringList ids = threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        for (const QString& id : ids)
            starved += starvedTime(threads.filePath(id));
    }
    return starved;
}
