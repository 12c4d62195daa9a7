#pragma once

#include <QtGlobal>
#include <csignal>
#include <sys/resource.h>

namespace HmiTest {

/** For its life no file can grow beyond so many bytes: what a full medium is to who writes. */
class FullMedium
{
public:
    explicit FullMedium(rlim_t aSize) : mUsualHandler(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &mUsual);
        const rlimit full{aSize, mUsual.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &full);
    }
    ~FullMedium()
    {
        ::setrlimit(RLIMIT_FSIZE, &mUsual);
        std::signal(SIGXFSZ, mUsualHandler);
    }
    Q_DISABLE_COPY(FullMedium)

private:
    void (*const mUsualHandler)(int);
    rlimit mUsual{};
};

} // namespace HmiTest
