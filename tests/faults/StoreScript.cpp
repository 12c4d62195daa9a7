#include "StoreScript.h"

using namespace DataManager;

static QString keyOf(const QString& aOwner, const QString& aId) { return aOwner + QLatin1Char('/') + aId; }

static const QString sProtected = QStringLiteral("protected");
static const QString sGlobal = QStringLiteral("global");
static const QString sBuiltIn = QStringLiteral("default");
static const QString sDriver = QStringLiteral("driver");

QStringList scriptIds()
{
    return QStringLiteral("flag count ratio name image large all first second").split(QLatin1Char(' '));
}

static void readInto(StoreState& aState, Scope aScope, const QString& aOwner)
{
    for (const QString& id : scriptIds()) {
        const ReadResult result = readSetting(aScope, id, aScope == Scope::User ? aOwner : QString());
        if (result.code == Ok)
            aState.settings.insert(keyOf(aOwner, id), *result.value);
    }
}

StoreState StoreState::read()
{
    StoreState state;
    UserProfile::getUserProfilesList(state.profiles);
    UserProfile::getActiveUserProfile(state.active);
    readInto(state, Scope::Protected, sProtected);
    readInto(state, Scope::Global, sGlobal);
    for (const QString& profile : qAsConst(state.profiles))
        readInto(state, Scope::User, profile);
    return state;
}

QString StoreState::difference(const StoreState& aOther) const
{
    QStringList words;
    if (profiles != aOther.profiles || active != aOther.active)
        words << QStringLiteral("profiles %1 (%2), not %3 (%4)")
                     .arg(aOther.profiles.join(QLatin1Char(' ')), aOther.active,
                          profiles.join(QLatin1Char(' ')), active);
    for (const QString& key : (settings.keys() + aOther.settings.keys()))
        if (settings.contains(key) != aOther.settings.contains(key) ||
            settings.value(key) != aOther.settings.value(key))
            words << key;
    words.removeDuplicates();
    return words.join(QStringLiteral(", "));
}

static void copyProfile(StoreState& aState, const QString& aFrom, const QString& aTo)
{
    for (const QString& id : scriptIds()) {
        aState.settings.remove(keyOf(aTo, id));
        if (aFrom != aTo && aState.settings.contains(keyOf(aFrom, id)))
            aState.settings.insert(keyOf(aTo, id), aState.settings.value(keyOf(aFrom, id)));
    }
}

static void put(StoreState& aState, Scope aScope, const QString& aId, const Value& aValue)
{
    if (aScope == Scope::AllUsers)
        for (const QString& profile : qAsConst(aState.profiles))
            aState.settings.insert(keyOf(profile, aId), aValue);
    else
        aState.settings.insert(keyOf(aScope == Scope::Protected ? sProtected
                                     : aScope == Scope::Global  ? sGlobal
                                                                : aState.active,
                                     aId),
                               aValue);
}

static StoreStep write(Scope aScope, const char* aId, const Value& aValue)
{
    const QString id = QLatin1String(aId);
    return {QStringLiteral("write ") + id, [=] { return writeSetting(aScope, id, aValue); },
            [=](StoreState& aState) { put(aState, aScope, id, aValue); }, true};
}

static StoreStep batch(int aNumber)
{
    const auto act = [=] {
        beginBatch();
        for (const char* id : {"first", "second", "name"})
            writeSetting(Scope::Global, QLatin1String(id), aNumber);
        writeSetting(Scope::User, QStringLiteral("first"), aNumber);
        return commitBatch();
    };
    const auto effect = [=](StoreState& aState) {
        for (const char* id : {"first", "second", "name"})
            put(aState, Scope::Global, QLatin1String(id), aNumber);
        put(aState, Scope::User, QStringLiteral("first"), aNumber);
    };
    return {QStringLiteral("batch"), act, effect, true};
}

static StoreStep addProfile(const QString& aName)
{
    return {QStringLiteral("add ") + aName, [=] { return UserProfile::addNewUserProfile(aName); },
            [=](StoreState& aState) {
                aState.profiles << aName;
                copyProfile(aState, sBuiltIn, aName);
            },
            false};
}

static StoreStep activate(const QString& aName)
{
    return {QStringLiteral("activate ") + aName, [=] { return UserProfile::setActiveUserProfile(aName); },
            [=](StoreState& aState) { aState.active = aName; }, false};
}

static StoreStep rename(const QString& aName, const QString& aNewName)
{
    return {QStringLiteral("rename ") + aName,
            [=] { return UserProfile::updateProfileAttributes(aName, aNewName); },
            [=](StoreState& aState) {
                copyProfile(aState, aName, aNewName);
                copyProfile(aState, aName, aName);
                aState.profiles.replace(aState.profiles.indexOf(aName), aNewName);
                aState.active = aState.active == aName ? aNewName : aState.active;
            },
            false};
}

static StoreStep removeProfile(const QString& aName)
{
    return {QStringLiteral("remove ") + aName, [=] { return UserProfile::deleteUserProfile(aName); },
            [=](StoreState& aState) {
                copyProfile(aState, aName, aName);
                aState.profiles.removeOne(aName);
                aState.active = aState.active == aName ? sDriver : aState.active;
            },
            false};
}

static StoreStep resetProfile(const QString& aName)
{
    return {QStringLiteral("reset ") + aName, [=] { return ResetUserProfile(aName); },
            [=](StoreState& aState) { copyProfile(aState, sBuiltIn, aName); }, false};
}

std::vector<StoreStep> everyOperation()
{
    const QString anna = QStringLiteral("Anna"), ben = QStringLiteral("Ben"), carl = QStringLiteral("Carl");
    const Value large = QString(20000, QLatin1Char('x'));
    return {write(Scope::Global, "flag", true),
            write(Scope::Global, "count", 1),
            write(Scope::Protected, "ratio", 0.5),
            write(Scope::User, "name", QStringLiteral("ä")),
            write(Scope::User, "image", QByteArray("\0\xff", 2)),
            write(Scope::Global, "count", 2),
            batch(3),
            write(Scope::AllUsers, "all", 4),
            addProfile(anna),
            activate(anna),
            write(Scope::User, "name", QStringLiteral("of Anna")),
            write(Scope::Global, "large", large),
            addProfile(ben),
            rename(ben, carl),
            write(Scope::AllUsers, "all", 5),
            resetProfile(anna),
            write(Scope::User, "flag", false),
            removeProfile(anna),
            batch(6),
            {QStringLiteral("factory reset"), &FactoryReset,
             [](StoreState& aState) { aState = StoreState(); }, false},
            write(Scope::Global, "count", 7),
            addProfile(ben),
            batch(8),
            write(Scope::Global, "large", QString(3000, QLatin1Char('y')))};
}

std::vector<StoreStep> longLog(Scope aScope, int aBytes, const std::function<void()>& aWaitForKeeper)
{
    StoreStep fill = write(aScope, "image", QByteArray(aBytes, 'z'));
    fill.act = [=, act = fill.act] {
        const int code = act();
        aWaitForKeeper();
        return code;
    };
    return {write(Scope::Global, "count", 1),
            batch(2),
            fill,
            write(Scope::Global, "count", 3),
            write(Scope::User, "large", QString(3000, QLatin1Char('x'))),
            batch(4)};
}
