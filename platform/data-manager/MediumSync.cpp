#include <platform/data-manager/MediumSync.h>

#include <QFile>
#include <QFileInfo>
#include <fcntl.h>
#include <unistd.h>

namespace DataManager {

void syncFolderOf(const QString& aPath)
{
    const int folder =
        ::open(QFile::encodeName(QFileInfo(aPath).path()).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        return;
    ::fsync(folder);
    ::close(folder);
}

} // namespace DataManager
