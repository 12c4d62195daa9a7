#pragma once

#include <QObject>
#include <QString>
#include <QVariant>

namespace Hmi::Shared {

/**
 * One setting: a typed value that the data manager keeps under a key, and that SettingsManager publishes to
 * QML under a name.
 *
 *     Text { text: SettingsManager.timeFormat.value }
 *     onClicked: SettingsManager.timeFormat.value = "h:mm"
 *
 * The value is read from the store once and then served from memory. Until the data manager is ready it lives
 * in memory only, and is written through as soon as it is. Every problem is a warning and a false result or a
 * value that stands in; a value that is refused changes nothing. Main thread only.
 */
class Q_DECL_EXPORT Setting : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool allowRestore READ getAllowRestore WRITE setAllowRestore NOTIFY allowRestoreChanged)
    Q_PROPERTY(QVariant value READ getValue WRITE setValue NOTIFY valueChanged)

public:
    enum SettingType {
        SettingTypeBool,
        SettingTypeInt,
        SettingTypeDouble,
        SettingTypeString, ///< of Unicode, at most MaximumLength characters
        SettingTypeObject, ///< never stored; takes no value
        SettingTypeByteArray
    };
    Q_ENUM(SettingType)

    enum SettingCategory {
        SettingCategoryUser, ///< of the active user profile
        SettingCategoryGlobal,
        SettingCategoryProtected
    };
    Q_ENUM(SettingCategory)

    static constexpr int MaximumLength = 256;

    Setting(const QString& aKey, const QString& aName, SettingType aType, const QVariant& aDefault,
            bool aExportable, SettingCategory aCategory, QObject* aParent = nullptr);
    /** An exportable one. */
    Setting(const QString& aKey, const QString& aName, SettingType aType, const QVariant& aDefault,
            SettingCategory aCategory, QObject* aParent = nullptr);

    /** Whether restoring defaults may touch the setting; true at first. */
    virtual bool getAllowRestore() const;
    /** Whether SettingsManager::toJson() writes it. */
    virtual bool getExportable() const;

    /**
     * Never invalid unless the default is. The first read with the data manager ready loads the value; when
     * the store has none, the value in memory or the default is written to it. An error of the store is asked
     * for again at the next read.
     */
    virtual QVariant getValue();
    virtual QVariant getValueDefault() const;
    /** As setValue() of the default; true when restoring is not allowed. */
    virtual bool restoreDefault();
    virtual void setAllowRestore(bool aAllowRestore);

    /**
     * Whether the value is stored, as the setting's type: an int of a double that QML brings is rounded.
     * False when it does not convert; everything stays as it was then. False as well when it cannot be
     * stored: the setting has the new value, in memory.
     */
    virtual bool setValue(const QVariant& aValue);

    /** Whether the value is kept by the data manager at all. */
    virtual bool isStored() const { return true; }

    QString getKey() const { return mKey; }
    QString getName() const { return mName; }
    SettingType getSettingType() const { return mType; }
    SettingCategory getCategory() const { return mCategory; }

    /** Whether a value in memory wins over the stored one at the first read; false at first. */
    bool getInMemoryPrecedence() const { return mInMemoryPrecedence; }
    void setInMemoryPrecedence(bool aPrecedence) { mInMemoryPrecedence = aPrecedence; }

    /** The value of a setting that holds an enumeration. */
    template <class T>
    T getTypeFromInt()
    {
        return static_cast<T>(getValue().toInt());
    }

signals:
    void allowRestoreChanged();
    /**
     * Invalid when another profile became active: the value is read when it is asked for. Also when the data
     * manager became ready and the stored value is not the one that was served until then.
     */
    void valueChanged(const QVariant& a_newValue);

public slots:
    void onDataManagerReadyChanged();
    void onUserProfileChanged(const QString& a_profile);
    /**
     * Another writer changed what is stored under the key: the setting takes the new value, or the default
     * when there is none any more, and says so when it differs. Its own writes are no news to it.
     */
    void onStoredValueChanged();

protected:
    bool isLoaded() const { return mLoaded; }
    /** The value in memory, else the default. */
    QVariant currentValue() const { return mValue.isValid() ? mValue : mDefault; }
    /** Takes the value without the store; from now on it is served. */
    void load(const QVariant& aValue);

private:
    struct Stored;

    QVariant loadAndTell();
    Stored readStored() const;
    bool writeStored(const QVariant& aValue);
    void writeThrough(const QVariant& aValue);
    bool accepts(const QVariant& aValue) const;
    QVariant converted(const QVariant& aValue) const;
    void takeStored(const QVariant& aValue);

    bool mAllowRestore = true;
    const bool mExportable;
    bool mLoaded = false;
    const SettingCategory mCategory;
    bool mInMemoryPrecedence = false;
    const QString mKey;
    const QString mName;
    const SettingType mType;
    QVariant mValue; ///< the stored value when loaded, else what was set in the meantime
    const QVariant mDefault;
    bool mWriting = false; ///< what the store announces now is this setting's own write
    bool mLoading = false; ///< a handler that reads while the first value is written is served from memory
};

} // namespace Hmi::Shared
