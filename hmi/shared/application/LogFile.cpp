#include <hmi/shared/application/LogFile.h>

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

namespace Hmi::Shared {

static void removeLast(int aDescriptor, qint64 aBytes)
{
    struct stat file;
    if (aBytes == 0 || ::fstat(aDescriptor, &file) != 0)
        return;
    // A file that cannot be cut either keeps the half line; there is nothing better to do with it.
    const int cut = ::ftruncate(aDescriptor, file.st_size - aBytes);
    Q_UNUSED(cut)
}

bool LogFile::create(const QString& aFileName)
{
    setFileName(aFileName);
    return open(WriteOnly | Append | NewOnly | Unbuffered);
}

qint64 LogFile::writeData(const char* aData, qint64 aSize)
{
    qint64 done = 0;
    while (done < aSize) {
        const ssize_t written = ::write(handle(), aData + done, static_cast<size_t>(aSize - done));
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0) {
            setErrorString(qt_error_string(errno));
            removeLast(handle(), done);
            return -1;
        }
        done += written;
    }
    return done;
}

} // namespace Hmi::Shared
