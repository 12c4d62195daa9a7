#pragma once

#include <QProcess>
#include <QString>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>

namespace HmiTest {

/**
 * A D-Bus daemon of this process's own in the place of the system bus. A process keeps the address with which
 * it first looked for that, so there is one address for all checks; only those that start it have a bus.
 */
class PrivateBus : public testing::Environment
{
public:
    /** Whether the daemon listens. */
    static bool start();
    static void stop();

    void SetUp() override;
    void TearDown() override;

private:
    QTemporaryDir mFolder;
    std::unique_ptr<QProcess> mDaemon;
};

} // namespace HmiTest
