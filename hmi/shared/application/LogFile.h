#pragma once

#include <QFile>

namespace Hmi::Shared {

/**
 * The file behind the log: a write is on its way to the file when it returns, and is taken whole or not at
 * all. What a full disk took of a line is removed again, so that no half line is left.
 */
class LogFile : public QFile
{
public:
    /** Creates the file. False when there is one of that name already, or it cannot be created. */
    bool create(const QString& aFileName);

protected:
    /** -1, with errorString() and the file unchanged, when not all could be written. */
    qint64 writeData(const char* aData, qint64 aSize) override;
};

} // namespace Hmi::Shared
