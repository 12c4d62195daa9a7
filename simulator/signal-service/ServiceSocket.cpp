#include <simulator/signal-service/ServiceSocket.h>

#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstring>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace Hmi::Simulator {

static constexpr int Backlog = 128;

static QString systemError() { return QString::fromLocal8Bit(std::strerror(errno)); }

static sockaddr_un addressOf(const QByteArray& aPath)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, aPath.constData(), static_cast<std::size_t>(aPath.size()));
    return address;
}

static int makeSocket() { return ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0); }

/** A service whose queue of connections is full lives as well. */
static bool isAlive(const sockaddr_un& aAddress)
{
    const int probe = makeSocket();
    const bool refused =
        ::connect(probe, reinterpret_cast<const sockaddr*>(&aAddress), sizeof(aAddress)) != 0 &&
        (errno == ECONNREFUSED || errno == ENOENT);
    ::close(probe);
    return !refused;
}

bool ServiceSocket::fail(const QString& aError)
{
    mError = aError;
    return false;
}

bool ServiceSocket::makeRoom(const QString& aPath)
{
    const QByteArray path = QFile::encodeName(aPath);
    if (path.size() >= static_cast<int>(sizeof(sockaddr_un::sun_path)))
        return fail(
            QStringLiteral("The path '%1' is too long for a socket; choose one of at most %2 bytes with "
                           "--signal-service.")
                .arg(aPath)
                .arg(sizeof(sockaddr_un::sun_path) - 1));
    const QString folder = QFileInfo(aPath).path();
    if (!QFileInfo(folder).isDir())
        return fail(QStringLiteral("There is no folder '%1' for the socket '%2'; make it, or choose another "
                                   "path with --signal-service.")
                        .arg(folder, aPath));
    struct stat file;
    if (::lstat(path.constData(), &file) != 0)
        return true;
    if (!S_ISSOCK(file.st_mode))
        return fail(QStringLiteral("'%1' is no socket and is left alone; remove it, or choose another path "
                                   "with --signal-service.")
                        .arg(aPath));
    if (isAlive(addressOf(path)))
        return fail(QStringLiteral("A service already listens at '%1'; end it, or choose another path with "
                                   "--signal-service.")
                        .arg(aPath));
    if (::unlink(path.constData()) != 0)
        return fail(
            QStringLiteral("The socket '%1', which a dead service left, cannot be removed (%2); remove "
                           "it, or choose another path with --signal-service.")
                .arg(aPath, systemError()));
    return true;
}

int ServiceSocket::open(const QString& aPath, uint aPermissions)
{
    if (!makeRoom(aPath))
        return -1;
    const sockaddr_un address = addressOf(QFile::encodeName(aPath));
    const int socket = makeSocket();
    const mode_t mask = ::umask(static_cast<mode_t>(~aPermissions & 0777));
    const bool bound = ::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
    ::umask(mask);
    if (bound && ::listen(socket, Backlog) == 0)
        return socket;
    mError = QStringLiteral("The socket '%1' cannot be made (%2); choose another path with --signal-service.")
                 .arg(aPath, systemError());
    ::close(socket);
    return -1;
}

} // namespace Hmi::Simulator
