#pragma once

#include "Fuzzing.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <atomic>
#include <ctime>

namespace HmiFuzz {

/** The process's application, without which no singleton comes into being. */
inline QCoreApplication& application()
{
    static int argumentCount = 1;
    static char name[] = "fuzz";
    static char* arguments[] = {name, nullptr};
    static QCoreApplication application(argumentCount, arguments);
    return application;
}

/**
 * The rest of the input, one piece of it doubled again and again, up to 256 KiB: what takes more than linear
 * time shows. Three choices say where the piece begins, how long it is, and how often it is doubled.
 */
inline QByteArray takeStretched(Input& aInput)
{
    static constexpr int MaximumSize = 256 * 1024;
    QByteArray bytes(aInput.getRest(), static_cast<int>(aInput.getRestSize()));
    const int begin = std::min(aInput.choose() * 4, bytes.size());
    QByteArray piece = bytes.mid(begin, aInput.choose());
    const int end = begin + piece.size();
    for (int count = aInput.choose() & 31; count > 0 && piece.size() < MaximumSize / 2; --count)
        piece += piece;
    return bytes.replace(begin, end - begin, piece);
}

/**
 * Counts warnings and what is worse, and swallows all messages, for as long as it lives. One at a time. With
 * HMI_FUZZ_MESSAGES in the environment they are shown, for who looks at one input.
 */
class Warnings
{
public:
    Warnings() : mFormer(qInstallMessageHandler(&Warnings::take)) { sCount = 0; }
    ~Warnings() { qInstallMessageHandler(mFormer); }
    Q_DISABLE_COPY_MOVE(Warnings)

    /** Since this was asked last. */
    int takeCount() { return sCount.exchange(0); }

private:
    static void take(QtMsgType aType, const QMessageLogContext&, const QString& aText)
    {
        static const bool isShown = qEnvironmentVariableIsSet("HMI_FUZZ_MESSAGES");
        if (isShown)
            std::fprintf(stderr, "%s\n", qUtf8Printable(aText));
        if (aType != QtDebugMsg && aType != QtInfoMsg)
            ++sCount;
    }

    static inline std::atomic<int> sCount{0};
    const QtMessageHandler mFormer;
};

/** Requires that what happens while it lives takes this process no more than two seconds. */
class Quick
{
public:
    Quick() = default;
    ~Quick() { require(std::clock() - mBegin < 2 * CLOCKS_PER_SEC, "no input takes long"); }
    Q_DISABLE_COPY_MOVE(Quick)

private:
    const std::clock_t mBegin = std::clock();
};

/** The folder of this process's files. */
inline const QTemporaryDir& folder()
{
    static const QTemporaryDir folder;
    return folder;
}

/** Of a name that no file before had, as code may remember what it has read. */
class File
{
public:
    explicit File(const QByteArray& aContent) :
        mPath(folder().filePath(QString::number(++sNumber) + QStringLiteral(".file")))
    {
        write(mPath, aContent);
    }
    ~File() { QFile::remove(mPath); }
    Q_DISABLE_COPY_MOVE(File)

    static void write(const QString& aPath, const QByteArray& aContent)
    {
        QFile file(aPath);
        require(file.open(QIODevice::WriteOnly) && file.write(aContent) == aContent.size(),
                "the folder for temporary files takes one");
    }

    const QString& getPath() const { return mPath; }

private:
    static inline int sNumber = 0;
    const QString mPath;
};

} // namespace HmiFuzz
