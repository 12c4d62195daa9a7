#pragma once

#include <QFile>
#include <QTemporaryDir>
#include <string>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

/** The socket at which systemd hears what a service says of itself. */
class NotifySocket
{
public:
    NotifySocket() : mSocket(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0))
    {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        qstrncpy(address.sun_path, QFile::encodeName(path()).constData(), sizeof(address.sun_path));
        mBound = ::bind(mSocket, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
        const timeval bound{60, 0};
        ::setsockopt(mSocket, SOL_SOCKET, SO_RCVTIMEO, &bound, sizeof(bound));
    }
    ~NotifySocket() { ::close(mSocket); }

    bool isBound() const { return mBound; }
    QString path() const { return mFolder.filePath(QStringLiteral("notify")); }

    /** Waits for the next message; empty when none comes within a minute. */
    std::string receive() const
    {
        char message[256];
        const ssize_t size = ::recv(mSocket, message, sizeof(message), 0);
        return size > 0 ? std::string(message, static_cast<size_t>(size)) : std::string();
    }

private:
    const QTemporaryDir mFolder;
    const int mSocket;
    bool mBound = false;
};
