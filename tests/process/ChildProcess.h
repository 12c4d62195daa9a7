#pragma once

#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

/** A program run to its end, with what it printed. */
struct ChildProcess
{
    /** Runs the program with a bound of a minute; a program that does not end by itself is killed. */
    static ChildProcess
    run(const QString& aProgram, const QStringList& aArguments,
        const QProcessEnvironment& aEnvironment = QProcessEnvironment::systemEnvironment(),
        const QString& aFolder = QString());

    bool ended = false; ///< by itself, and not by a signal
    int status = -1;
    QString output; ///< standard output and standard error, as they came
};
