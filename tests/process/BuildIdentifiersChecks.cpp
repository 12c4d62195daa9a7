#include "ChildProcess.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <tests/support/FilesAndWaits.h>
#include <tests/support/PrintQt.h>

namespace {

class BuildIdentifiers : public testing::Test
{
protected:
    BuildIdentifiers()
    {
        mEnvironment.insert(QStringLiteral("GIT_CEILING_DIRECTORIES"), QFileInfo(mFolder.path()).path());
        mEnvironment.insert(QStringLiteral("GIT_CONFIG_GLOBAL"), QStringLiteral("/dev/null"));
        QDir(mFolder.path()).mkpath(QStringLiteral("project/vendored"));
    }

    QString git(const QString& aArguments) const
    {
        const QString identity =
            QStringLiteral("-c user.name=a -c user.email=a@b -C %1/project ").arg(mFolder.path());
        const auto run = ChildProcess::run(QStringLiteral("git"),
                                           (identity + aArguments).split(QLatin1Char(' ')), mEnvironment);
        EXPECT_EQ(run.status, 0) << qPrintable(run.output);
        return run.output.trimmed();
    }

    /** The commit and its description, with a blank between, as a build in that folder has them. */
    QString generate(const char* aProject, const QString& aGitDir = QString()) const
    {
        QProcessEnvironment environment = mEnvironment;
        if (!aGitDir.isEmpty())
            environment.insert(QStringLiteral("GIT_DIR"), aGitDir);
        const QStringList arguments{QStringLiteral("-DSOURCE=") + mFolder.filePath(QLatin1String(aProject)),
                                    QStringLiteral("-DPRODUCT=hmi"),
                                    QStringLiteral("-DVERSION=1.2"),
                                    QStringLiteral("-DHEADER=") + mHeader,
                                    QStringLiteral("-P"),
                                    QStringLiteral(HMI_BUILD_IDENTIFIERS)};
        const auto run = ChildProcess::run(QStringLiteral(HMI_CMAKE), arguments, environment);
        EXPECT_EQ(run.status, 0) << qPrintable(run.output);
        static const QRegularExpression pattern(QStringLiteral("= \"(.*)\";\n.* = \"(.*)\";\n"));
        const auto match = pattern.match(QString::fromUtf8(HmiTest::readFile(mHeader)));
        return match.captured(1) + QLatin1Char(' ') + match.captured(2);
    }

    QTemporaryDir mFolder;
    const QString mHeader = mFolder.filePath(QStringLiteral("header.h"));
    QProcessEnvironment mEnvironment = QProcessEnvironment::systemEnvironment();
};

TEST_F(BuildIdentifiers, NameTheCommitOfTheProjectsOwnRepository)
{
    const QString unknown = QStringLiteral("unknown unknown");
    EXPECT_EQ(generate("project"), unknown) << "no repository";
    git(QStringLiteral("init -b a/\"b"));
    EXPECT_EQ(generate("project"), unknown) << "no commit";
    git(QStringLiteral("commit --allow-empty -m 1"));
    git(QStringLiteral("commit --allow-empty -m 2"));
    const QString commit = git(QStringLiteral("rev-parse HEAD"));
    ASSERT_EQ(commit.size(), 40);
    const QString described = commit + QStringLiteral(" %1/hmi/1.2-%2-g") + commit.left(7);
    const QString onBranch = described.arg(QStringLiteral("a/\\\"b")).arg(2);
    EXPECT_EQ(generate("project"), onBranch);
    EXPECT_EQ(generate("project", QStringLiteral("/elsewhere")), onBranch) << "started by a hook";
    EXPECT_EQ(generate("project/vendored"), unknown) << "in another project's repository";
    git(QStringLiteral("clone --depth 1 file://%1/project ../shallow").arg(mFolder.path()));
    EXPECT_EQ(generate("shallow"), described.arg(QStringLiteral("a/\\\"b")).arg(0));
    git(QStringLiteral("checkout --detach"));
    EXPECT_EQ(generate("project"), described.arg(QStringLiteral("detached")).arg(2));
}

TEST_F(BuildIdentifiers, LeaveAHeaderThatIsRightAlone)
{
    generate("project");
    QFile header(mHeader);
    const QDateTime longAgo = QDateTime::fromSecsSinceEpoch(1000000);
    ASSERT_TRUE(header.open(QFile::ReadWrite) && header.setFileTime(longAgo, QFile::FileModificationTime));
    header.close();
    generate("project");
    EXPECT_EQ(QFileInfo(mHeader).lastModified(), longAgo);
}

} // namespace
