#pragma once

#include <QRegularExpression>
#include <QStringList>
#include <platform/notification-manager/NotificationManagerClient.h>
#include <platform/update-manager/UpdateManagerClient.h>
#include <tests/support/FilesAndWaits.h>

/** What the signals of services said, each in a word and its arguments. */
class HeardSignals
{
protected:
    /** To both clients, which are deleted before this. */
    void listen(UpdateManager::UpdateManagerClient& aUpdate,
                NotificationMgr::NotificationManagerClient& aNotifications);
    /** Whether this is heard, after what was waited for before. */
    bool hears(const QString& aText)
    {
        const bool heard = HmiTest::waitUntil([&] { return mHeard.indexOf(aText, mKnown) >= 0; });
        mKnown = heard ? mHeard.indexOf(aText, mKnown) + 1 : mKnown;
        return heard;
    }
    bool hears(const char* aText) { return hears(QString::fromLatin1(aText)); }
    /** What was heard of these words, in order, without progress. */
    QStringList getHeard() const
    {
        return mHeard.filter(QRegularExpression(QStringLiteral("^(?!DownloadProgress|InstallProgress)")));
    }

    QStringList mHeard;
    int mKnown = 0;

private:
    static QString textOf(const QString& aText) { return aText; }
    static QString textOf(const QStringList& aTexts) { return aTexts.join(QLatin1Char('|')); }
    static QString textOf(bool aFlag) { return QVariant(aFlag).toString(); }
    template <class T>
    static QString textOf(T aNumber)
    {
        return QString::number(aNumber);
    }
};

inline void HeardSignals::listen(UpdateManager::UpdateManagerClient& aUpdate,
                                 NotificationMgr::NotificationManagerClient& aNotifications)
{
    using Update = UpdateManager::UpdateManagerClient;
    using Notify = NotificationMgr::NotificationManagerClient;
    const auto hear = [this](const char* aSignal) {
        return [this, aSignal](const auto&... aArguments) {
            mHeard += QStringList{QString::fromLatin1(aSignal), textOf(aArguments)...}.join(QLatin1Char(' '));
        };
    };
    QObject::connect(&aUpdate, &Update::DownloadableUpdatesChanged, hear("Downloadable"));
    QObject::connect(&aUpdate, &Update::DownloadProgress, hear("DownloadProgress"));
    QObject::connect(&aUpdate, &Update::DownloadComplete, hear("Complete"));
    QObject::connect(&aUpdate, &Update::AvailableUpdatesChanged, hear("Available"));
    QObject::connect(&aUpdate, &Update::InstallFinished, hear("Finished"));
    QObject::connect(&aUpdate, &Update::AutoInstallPending, hear("AutoInstall"));
    QObject::connect(&aUpdate, &Update::AutoRebootPending, hear("AutoReboot"));
    QObject::connect(&aUpdate, &Update::InstallStateChanged, hear("State"));
    QObject::connect(&aUpdate, &Update::InstallProgress, hear("InstallProgress"));
    QObject::connect(&aNotifications, &Notify::NotificationAdded, hear("Added"));
    QObject::connect(&aNotifications, &Notify::NotificationDismissed, hear("Dismissed"));
    QObject::connect(&aNotifications, &Notify::NotificationShowRequested, hear("Show"));
    QObject::connect(&aNotifications, &Notify::NotificationLocationUpdated, hear("Moved"));
}
