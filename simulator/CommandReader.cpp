#include <simulator/CommandReader.h>

#include <cerrno>
#include <simulator/Console.h>
#include <unistd.h>

namespace Hmi::Simulator {

CommandReader::CommandReader(int aDescriptor, QObject* aParent) :
    QObject(aParent), mDescriptor(aDescriptor), mNotifier(aDescriptor, QSocketNotifier::Read)
{
    connect(&mNotifier, &QSocketNotifier::activated, this, &CommandReader::readMore);
}

void CommandReader::readMore()
{
    char bytes[MaximumLine];
    const ssize_t count = ::read(mDescriptor, bytes, sizeof(bytes));
    if (count < 0 && (errno == EINTR || errno == EAGAIN))
        return;
    if (count <= 0) {
        finish();
        return;
    }
    mPending.append(bytes, static_cast<int>(count));
    cutLines();
}

void CommandReader::finish()
{
    mNotifier.setEnabled(false);
    handOut(mPending);
    emit ended();
}

void CommandReader::cutLines()
{
    int begin = 0;
    for (int end = mPending.indexOf('\n'); end >= 0; end = mPending.indexOf('\n', begin)) {
        handOut(mPending.mid(begin, end - begin));
        begin = end + 1;
    }
    mPending.remove(0, begin);
    // What is too long stays too long.
    mPending.truncate(MaximumLine + 1);
}

void CommandReader::handOut(const QByteArray& aLine)
{
    const QString line = QString::fromUtf8(aLine).trimmed();
    if (aLine.size() > MaximumLine)
        Console::print(QStringLiteral("error a command has at most %1 bytes").arg(MaximumLine));
    else if (!line.isEmpty())
        emit lineRead(line);
}

} // namespace Hmi::Simulator
