// What only processes of their own show of a settings store; see the function of each command.

#include <QCoreApplication>
#include <QEventLoop>
#include <QFileInfo>
#include <QJSValue>
#include <QProcess>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QSettings>
#include <QThread>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

#include "FlushCount.h"
#include "PrivateMemory.h"
#include "SettingsStores.h"
#include <hmi/shared/settings/DataManagerWrapper.h>

static long long now()
{
    return std::chrono::steady_clock::now().time_since_epoch() / std::chrono::nanoseconds(1);
}

/** Prints the time of opening the store and reading all of it, in a process that has read its own INI file.
 */
static void read(const std::string& aKind, const std::string& aFolder, int aCount)
{
    const QString ini = QString::fromStdString(aFolder + "/application.ini");
    QSettings(ini, QSettings::IniFormat).setValue(QStringLiteral("HmiShared/DataManagerEnabled"), true);
    require(
        QSettings(ini, QSettings::IniFormat).value(QStringLiteral("HmiShared/DataManagerEnabled")).toBool(),
        "reading a configuration");
    const long long start = now();
    const auto store = openStore(aKind, aFolder, false);
    const bool readByOpening = aKind == "DataManager";
    const int count = readByOpening ? aCount : store->readAll();
    std::printf("%lld\n", now() - start);
    require(count == aCount && (!readByOpening || store->readAll() == aCount), "reading all settings");
}

/** Prints the growth of private memory (kB) and the greatest size of the log (bytes) in so many writes. */
static void grow(const std::string& aFolder, int aCount)
{
    constexpr int Settings = 200;
    const auto store = openStore("Setting", aFolder, false);
    store->fill(Settings);
    const long before = privateKilobytes();
    QFileInfo log(QString::fromStdString(aFolder + "/hmi_settings.db-wal"));
    qint64 greatest = 0;
    for (int written = 1; written <= aCount; ++written) {
        store->set(written % Settings, written);
        log.refresh();
        greatest = std::max(greatest, log.size());
    }
    require(greatest > 0, "seeing the log");
    std::printf("%ld %lld\n", privateKilobytes() - before, static_cast<long long>(greatest));
}

/** Prints how often this thread waited for the medium in so many writes of a durability: Normal or Full. */
static void countFlushes(const std::string& aDurability, const std::string& aFolder, int aCount)
{
    const auto store = openStore("Setting", aFolder, aDurability == "Full");
    store->fill(1);
    const long before = flushCount();
    for (int written = 1; written <= aCount; ++written)
        store->set(0, written);
    std::printf("%ld\n", flushCount() - before);
}

/**
 * Prints the growth of private memory (kB) in so many reads by a script, which returns to the event loop from
 * time to time, once the engine is warm.
 */
static void readByScript(const std::string& aFolder, int aCount)
{
    constexpr int ReadsInTurn = 1000;
    const auto store = openStore("Setting", aFolder, false);
    store->fill(1);
    qRegisterMetaType<Hmi::Shared::DataManagerReturnTypeQml*>();
    QQmlEngine engine;
    auto* const manager = Hmi::Shared::DataManagerWrapper::instance();
    QQmlEngine::setObjectOwnership(manager, QQmlEngine::CppOwnership);
    engine.globalObject().setProperty(QStringLiteral("manager"), engine.newQObject(manager));
    QJSValue read = engine.evaluate(
        QStringLiteral("(function(count) { let sum = 0; for (let n = 0; n < count; ++n) "
                       "sum += 1 + manager.getGlobalSettingInt('setting0').value; return sum; })"));
    // What the engine has collected is deleted by an event loop.
    const auto runEvents = [] {
        QEventLoop loop;
        QTimer::singleShot(0, &loop, &QEventLoop::quit);
        loop.exec();
    };
    const auto readMany = [&](int aTimes) {
        for (int count = 0; count < aTimes; count += ReadsInTurn) {
            require(read.call({ReadsInTurn}).toInt() == ReadsInTurn, "reading by a script");
            runEvents();
        }
        engine.collectGarbage();
        runEvents();
        return privateKilobytes();
    };
    const long before = readMany(aCount / 5);
    std::printf("%ld\n", readMany(aCount) - before);
}

namespace {

/** What a screen binds to; says when it sees a change. */
class Watched : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int value MEMBER mValue NOTIFY valueChanged)

public:
    explicit Watched(SettingsStore& aStore)
    {
        aStore.watch([this](int aValue) {
            mValue = aValue;
            emit valueChanged();
        });
    }

    Q_INVOKABLE void seen()
    {
        std::printf("%lld\n", now());
        std::fflush(stdout);
    }

signals:
    void valueChanged();

private:
    int mValue = 0;
};

} // namespace

/** Prints an empty line, then the time of each change that a binding sees, until it is ended. */
static void watch(const std::string& aKind, const std::string& aFolder)
{
    const auto store = openStore(aKind, aFolder, false);
    Watched watched(*store);
    QQmlEngine engine;
    engine.rootContext()->setContextProperty(QStringLiteral("watched"), &watched);
    QQmlComponent component(&engine);
    component.setData("import QtQml 2.15\n"
                      "QtObject { property int shown: watched.value; onShownChanged: watched.seen() }",
                      {});
    const std::unique_ptr<QObject> binding(component.create());
    require(binding != nullptr, "binding to the setting");
    std::puts("");
    std::fflush(stdout);
    QCoreApplication::exec();
}

/** Prints the median time from a write in this process to a binding in another. */
static void change(const std::string& aKind, const std::string& aFolder, int aCount)
{
    const auto store = openStore(aKind, aFolder, false);
    store->fill(1);
    QProcess watcher;
    watcher.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    QEventLoop loop;
    QObject::connect(&watcher, &QProcess::readyRead, &loop, &QEventLoop::quit);
    QObject::connect(&watcher, &QProcess::errorOccurred, [] { require(false, "running the watcher"); });
    watcher.start(QCoreApplication::applicationFilePath(),
                  {QStringLiteral("watch"), QString::fromStdString(aKind), QString::fromStdString(aFolder)});
    loop.exec();
    watcher.readLine();
    std::vector<long long> times;
    for (int value = 1; value <= aCount; ++value) {
        QThread::msleep(5); // Both processes fall idle, as they are when a user changes something.
        const long long start = now();
        store->set(0, value);
        loop.exec();
        times.push_back(watcher.readLine().trimmed().toLongLong() - start);
    }
    std::nth_element(times.begin(), times.begin() + aCount / 2, times.end());
    std::printf("%lld\n", times[static_cast<std::size_t>(aCount / 2)]);
    watcher.disconnect();
    watcher.kill();
    watcher.waitForFinished();
}

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    require(argc >= 4, "running without a command, a store and a folder");
    const std::string command = argv[1];
    const std::string kind = argv[2];
    const std::string folder = argv[3];
    const int count = argc > 4 ? std::atoi(argv[4]) : 0;
    if (command == "fill")
        openStore(kind, folder, false)->fill(count);
    else if (command == "read")
        read(kind, folder, count);
    else if (command == "grow")
        grow(folder, count);
    else if (command == "flushes")
        countFlushes(kind, folder, count);
    else if (command == "script")
        readByScript(folder, count);
    else if (command == "watch")
        watch(kind, folder);
    else
        change(kind, folder, count);
    return 0;
}

#include "SettingsProbe.moc"
