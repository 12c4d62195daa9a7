// Shuts down as an application does, step by step: each argument is one of the words in the table below.
#include <QCoreApplication>
#include <QProcess>
#include <QThread>
#include <QTimer>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <platform/shutdown/ChildEnvironment.h>
#include <platform/shutdown/ServiceNotifier.h>
#include <platform/shutdown/ShutdownManager.h>
#include <platform/shutdown/ShutdownWatch.h>

namespace {

std::unique_ptr<QT::ShutdownManager> sManager;
std::unique_ptr<QT::ShutdownWatch> sWatch;
std::unique_ptr<QT::ServiceNotifier> sNotifier;

void say(const char* aWord, int aNumber) { ::dprintf(STDOUT_FILENO, "%s %d\n", aWord, aNumber); }

void makeManager()
{
    sManager = std::make_unique<QT::ShutdownManager>();
    QObject::connect(sManager.get(), &QT::ShutdownManager::shutdownRequested, qApp, [] {
        say("request", sManager != nullptr);
        sWatch = std::make_unique<QT::ShutdownWatch>();
        sManager.reset();
        // A request too many would come before this.
        QTimer::singleShot(0, qApp, &QCoreApplication::quit);
    });
    say("initialized", sManager->initialize());
}

void notify()
{
    sNotifier = std::make_unique<QT::ServiceNotifier>();
    sNotifier->ready();
    sNotifier->status(QStringLiteral("drives\nWATCHDOG=trigger"));
}

void runChild()
{
    QProcess child;
    child.setProcessChannelMode(QProcess::ForwardedChannels);
    child.setProcessEnvironment(QT::childEnvironment());
    child.start(
        QStringLiteral("/bin/sh"),
        {QStringLiteral("-c"), QStringLiteral("echo $(grep Sig[BI] /proc/$$/status) $(ls /proc/self/fd) "
                                              "${NOTIFY_SOCKET-none}; kill -TERM $$; echo survived")});
    child.waitForFinished(-1);
}

/** Not in a program of its own yet. */
void forkChild()
{
    int status = 0;
    if (::fork() == 0)
        ::_exit(std::raise(SIGTERM));
    ::wait(&status);
    say("child", status);
}

void fillStandardError()
{
    int ends[2];
    if (::pipe2(ends, O_NONBLOCK) != 0 || ::dup2(ends[1], STDERR_FILENO) < 0)
        ::_exit(1);
    while (::write(STDERR_FILENO, "", 1) == 1) {
    }
    ::fcntl(STDERR_FILENO, F_SETFL, 0);
}

/** How many files may be open: none, and as many as before. */
void exchangeFileLimit()
{
    static rlim_t sOther = 0;
    rlimit limit = {};
    ::getrlimit(RLIMIT_NOFILE, &limit);
    std::swap(limit.rlim_cur, sOther);
    ::setrlimit(RLIMIT_NOFILE, &limit);
}

void hang() { QThread::sleep(3600); }

const std::map<std::string, std::function<void()>> sWords{
    {"previous", [] { std::signal(SIGTERM, [](int aSignal) { say("previous", aSignal); }); }},
    {"early", &QT::ShutdownManager::installEarly},
    {"manager", &makeManager},
    {"delete", [] { sManager.reset(); }},
    {"watch", [] { sWatch = std::make_unique<QT::ShutdownWatch>(); }},
    {"strict", [] { sWatch = std::make_unique<QT::ShutdownWatch>(std::chrono::milliseconds(0)); }},
    {"step", [] { sWatch->beginStep(QStringLiteral("saving")); }},
    {"unwatch", [] { sWatch.reset(); }},
    {"loop", &QCoreApplication::exec},
    {"requested", [] { say("requested", QT::ShutdownManager::isRequested()); }},
    {"TERM", [] { std::raise(SIGTERM); }},
    {"INT", [] { std::raise(SIGINT); }},
    {"hang", &hang},
    {"child", &runChild},
    {"fork", &forkChild},
    {"blocklog", [] { qInstallMessageHandler([](auto, auto&, auto&) { hang(); }); }},
    {"fullerror", &fillStandardError},
    {"files", &exchangeFileLimit},
    {"notify", &notify},
    {"stopping", [] { sNotifier->stopping(); }},
};

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    for (int i = 1; i < argc; ++i)
        sWords.at(argv[i])();
    sNotifier.reset();
    sWatch.reset();
    sManager.reset();
    return 0;
}
