#pragma once

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>
#include <QString>

namespace Hmi::Simulator {

/** Cuts what arrives at a file descriptor into lines, without ever waiting for one. */
class CommandReader : public QObject
{
    Q_OBJECT

public:
    /** Longer lines are skipped, and one error line says so. In bytes. */
    static constexpr int MaximumLine = 65536;

    /** The descriptor stays open and its owner's. */
    explicit CommandReader(int aDescriptor, QObject* aParent = nullptr);

signals:
    /** Without white space around it; never empty. */
    void lineRead(const QString& aLine);
    /** No more will come; the last line needs no line feed. */
    void ended();

private:
    void readMore();
    void finish();
    void cutLines();
    void handOut(const QByteArray& aLine);

    const int mDescriptor;
    QSocketNotifier mNotifier;
    QByteArray mPending;
};

} // namespace Hmi::Simulator
