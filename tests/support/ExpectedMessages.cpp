#include "ExpectedMessages.h"

#include <QMutex>
#include <QMutexLocker>
#include <QRegularExpression>
#include <QVector>
#include <algorithm>
#include <gtest/gtest.h>

namespace {

struct Expectation
{
    QtMsgType type;
    QRegularExpression pattern;
};

QMutex sMutex;
QVector<Expectation> sExpected;
QStringList sUnexpected;

void recordMessage(QtMsgType aType, const QMessageLogContext& aContext, const QString& aText)
{
    if (aType == QtDebugMsg || aType == QtInfoMsg)
        return;
    if (aType == QtFatalMsg) {
        fprintf(stderr, "%s\n", qPrintable(aText));
        return;
    }
    const QMutexLocker lock(&sMutex);
    const auto match = std::find_if(sExpected.begin(), sExpected.end(), [&](const Expectation& expectation) {
        return expectation.type == aType && expectation.pattern.match(aText).hasMatch();
    });
    if (match != sExpected.end())
        sExpected.erase(match);
    else
        sUnexpected.append(qFormatLogMessage(aType, aContext, aText));
}

class MessageListener : public testing::EmptyTestEventListener
{
    void OnTestStart(const testing::TestInfo&) override
    {
        sExpected.clear();
        sUnexpected.clear();
        qInstallMessageHandler(&recordMessage);
    }

    void OnTestEnd(const testing::TestInfo&) override
    {
        qInstallMessageHandler(nullptr);
        const QMutexLocker lock(&sMutex);
        for (const QString& message : qAsConst(sUnexpected))
            ADD_FAILURE() << "unexpected message: " << qPrintable(message);
        for (const Expectation& expectation : qAsConst(sExpected))
            ADD_FAILURE() << "message never came: " << qPrintable(expectation.pattern.pattern());
    }
};

const bool sRegistered = [] {
    testing::UnitTest::GetInstance()->listeners().Append(new MessageListener);
    return true;
}();

void expect(QtMsgType aType, const QString& aPattern)
{
    const QMutexLocker lock(&sMutex);
    sExpected.append({aType, QRegularExpression(QRegularExpression::anchoredPattern(aPattern),
                                                QRegularExpression::DotMatchesEverythingOption)});
}

} // namespace

namespace HmiTest {

void expectWarning(const QString& aText) { expect(QtWarningMsg, QRegularExpression::escape(aText)); }

void expectCritical(const QString& aText) { expect(QtCriticalMsg, QRegularExpression::escape(aText)); }

void expectMessageMatching(QtMsgType aType, const QString& aPattern) { expect(aType, aPattern); }

} // namespace HmiTest
