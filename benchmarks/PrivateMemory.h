#pragma once

#include <QFile>

/** Clean pages are not counted: they are pages of files, which every process shares and the kernel may drop.
 */
inline long privateKilobytes()
{
    QFile file(QStringLiteral("/proc/self/smaps_rollup"));
    if (!file.open(QFile::ReadOnly))
        return -1;
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray& line : lines)
        if (line.startsWith("Private_Dirty"))
            return line.simplified().split(' ').at(1).toLong();
    return -1;
}
