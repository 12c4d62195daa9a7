// Works on a store as any process of the head unit does, so that checks can kill it or run it beside another:
//   write <ini> <prefix> <first> <count>   begins with a line of standard input; says "started <code>", then
//   of
//                                          each value "ack <value>" or "code <code>"
//   read <ini> <prefix>                    says "started <code>", then the value of each key, one a line
#include <QCoreApplication>
#include <QStringList>
#include <cstdio>
#include <unistd.h>

#include <platform/data-manager/DataManager.h>

namespace {

using namespace DataManager;

constexpr int keys = 20;
const QString sShared = QStringLiteral("shared");

void say(const QByteArray& aWord, int aNumber)
{
    const QByteArray line = aWord + QByteArray::number(aNumber) + '\n';
    if (::write(STDOUT_FILENO, line.constData(), size_t(line.size())) != line.size())
        _exit(1);
}

void writeValues(const QString& aPrefix, int aFirst, int aCount)
{
    for (int value = aFirst; value < aFirst + aCount; ++value) {
        int code = Settings::setGlobalSetting(aPrefix + QString::number(value % keys), value);
        if (code == Ok)
            code = Settings::setGlobalSetting(sShared, value);
        say(code == Ok ? "ack " : "code ", code == Ok ? value : code);
    }
}

void readValue(const QString& aKey)
{
    int value = -1;
    Settings::getGlobalSetting(aKey, value);
    say(QByteArray(), value);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const bool isWriter = arguments.value(1) == QStringLiteral("write") && std::getchar() != EOF;
    say("started ", StartUp(arguments.value(2)));
    if (isWriter)
        writeValues(arguments.value(3), arguments.value(4).toInt(), arguments.value(5).toInt());
    for (int i = 0; i < keys && !isWriter; ++i)
        readValue(arguments.value(3) + QString::number(i));
    if (!isWriter)
        readValue(sShared);
    return ShutDown();
}
