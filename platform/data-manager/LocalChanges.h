#pragma once

#include <QHash>
#include <QObject>
#include <QSet>
#include <QString>
#include <QStringList>

namespace DataManager {

/**
 * What this process wants to be told of and what it changed itself: the meeting point of the operations and
 * the signal clients of one process. Main thread only.
 */
class LocalChanges : public QObject
{
    Q_OBJECT

public:
    static LocalChanges& instance();

    void request(const QString& aId, const QString& aOwner);
    /** False when this owner had not requested it. */
    bool release(const QString& aId, const QString& aOwner);

    bool isRequested(const QString& aId) const { return mOwners.contains(aId); }
    QStringList getRequested() const { return mOwners.keys(); }

    /** Tells the signal clients, when the setting is requested. */
    void notifySetting(int aType, const QString& aId);
    void notifyProfile(const QString& aName) { emit profileChanged(aName); }

    /** How often operations found and took over what other processes wrote. */
    int getTakeovers() const { return mTakeovers; }
    void noteTakeover() { ++mTakeovers; }

signals:
    void requested(const QString& aId);
    void released(const QString& aId);
    void settingChanged(int aType, const QString& aId);
    void profileChanged(const QString& aName);

private:
    QHash<QString, QSet<QString>> mOwners;
    int mTakeovers = 0;
};

} // namespace DataManager
