#include <platform/shutdown/ServiceNotifier.h>

#include <gtest/gtest.h>
#include <tests/support/ExpectedMessages.h>

TEST(ServiceNotifier, NeedsItsLibraryOnlyWhereSystemdStartedTheProcess)
{
    const auto tell = [] {
        QT::ServiceNotifier notifier(nullptr, QStringLiteral("hmi-no-such-library"));
        notifier.ready();
        notifier.stopping();
    };
    tell();
    for (const char* const variable : {"NOTIFY_SOCKET", "WATCHDOG_USEC"}) {
        qputenv(variable, "1");
        HmiTest::expectMessageMatching(
            QtWarningMsg,
            QStringLiteral("systemd is told nothing, .*hmi-no-such-library.* Install libsystemd.so.0, .*"));
        tell();
        qunsetenv(variable);
    }
}
