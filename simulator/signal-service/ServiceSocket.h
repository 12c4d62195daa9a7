#pragma once

#include <QString>

namespace Hmi::Simulator {

/**
 * Takes the place of the service's socket in the file system. A socket that a dead service left is replaced;
 * a service that lives and a file that is no socket are left alone.
 */
class ServiceSocket
{
public:
    /**
     * A listening socket with exactly these permissions at every instant; the caller closes it and removes
     * the file. -1, with the error saying what to do, when that cannot be. Changes the process's file mask
     * while it runs.
     */
    int open(const QString& aPath, uint aPermissions);
    QString getError() const { return mError; }

private:
    bool makeRoom(const QString& aPath);
    bool fail(const QString& aError);

    QString mError;
};

} // namespace Hmi::Simulator
