#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <QTimer>
#include <functional>
#include <string>

namespace HmiTest {

inline void writeFile(const QTemporaryDir& aFolder, const QByteArray& aName, const QByteArray& aContent)
{
    QFile file(aFolder.filePath(QString::fromUtf8(aName)));
    if (!file.open(QFile::WriteOnly) || file.write(aContent) != aContent.size())
        qFatal("cannot write %s", aName.constData());
}

inline QByteArray readFile(const QString& aPath)
{
    QFile file(aPath);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

/** Runs the event loop until the condition holds; false when it does not in time. */
inline bool waitUntil(const std::function<bool()>& aCondition, int aMilliseconds = 20000)
{
    const QDeadlineTimer deadline(aMilliseconds);
    QTimer lookAgain;
    lookAgain.start(5);
    while (!aCondition() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return aCondition();
}

/** The texts with a comma between, readable in a failure. */
inline std::string joined(const QStringList& aTexts) { return aTexts.join(QLatin1Char(',')).toStdString(); }

} // namespace HmiTest
