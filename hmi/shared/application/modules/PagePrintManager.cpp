#include <hmi/shared/application/modules/PagePrintManager.h>

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QQuickItem>
#include <QQuickItemGrabResult>
#include <QQuickWindow>
#include <QSaveFile>

#include <hmi/shared/application/HmiSharedConfigs.h>

namespace Hmi::Shared {

static bool staysInFolder(const QString& aFileName)
{
    return !aFileName.isEmpty() && aFileName != QLatin1String(".") && !aFileName.contains(QLatin1Char('/')) &&
           !aFileName.contains(QLatin1Char('\\')) && !aFileName.contains(QLatin1String(".."));
}

/** The reason of the failure; empty when the file was written. */
static QString write(const QImage& aImage, const QString& aFilePath)
{
    if (aImage.isNull())
        return QStringLiteral("there is no picture");
    QDir().mkpath(QFileInfo(aFilePath).path());
    QSaveFile file(aFilePath);
    if (!file.open(QIODevice::WriteOnly))
        return file.errorString();
    const bool encoded = aImage.save(&file, "PNG");
    // Without flush() commit() would not see that the rest of a short file found no room.
    return encoded && file.flush() && file.commit() ? QString() : file.errorString();
}

PagePrintManager::PagePrintManager(const QString& aFolder) : mFolder(aFolder) {}

PagePrintManager::PagePrintManager(QQmlEngine*, QJSEngine*) :
    PagePrintManager(HmiSharedConfigs::instance()->getScreenSnapshotPath())
{}

bool PagePrintManager::print(QObject* aItemOrWindow, const QString& aFileName)
{
    auto* window = qobject_cast<QQuickWindow*>(aItemOrWindow);
    auto* item = qobject_cast<QQuickItem*>(aItemOrWindow);
    if (!staysInFolder(aFileName) || (!window && !item)) {
        qWarning("Cannot print to \"%s\": %s.", qPrintable(aFileName),
                 window || item ? "this is no plain file name" : "the object is no item and no window");
        return false;
    }
    if (item)
        return printItem(item, aFileName);
    const QImage picture = window->grabWindow();
    // Some platforms cannot read a window back.
    if (picture.isNull())
        return printItem(window->contentItem(), aFileName);
    save(picture, aFileName);
    return true;
}

bool PagePrintManager::printItem(QQuickItem* aItem, const QString& aFileName)
{
    const QSharedPointer<QQuickItemGrabResult> result = aItem->grabToImage();
    // The scene graph has already said why.
    if (!result)
        return false;
    mPending.append(result);
    // Queued, because the result is released by it and must not be within its own signal.
    connect(
        result.data(), &QQuickItemGrabResult::ready, this,
        [this, weak = result.toWeakRef(), aFileName] { finishItem(weak.toStrongRef(), aFileName); },
        Qt::QueuedConnection);
    return true;
}

void PagePrintManager::finishItem(const QSharedPointer<QQuickItemGrabResult>& aResult,
                                  const QString& aFileName)
{
    mPending.removeOne(aResult);
    save(aResult->image(), aFileName);
}

bool PagePrintManager::save(const QImage& aImage, const QString& aFileName)
{
    const QString filePath = getFilePath(aFileName);
    const QString reason =
        staysInFolder(aFileName) ? write(aImage, filePath) : QStringLiteral("this is no plain file name");
    if (reason.isEmpty()) {
        emit printed(filePath);
        return true;
    }
    qWarning("Cannot print to \"%s\": %s.", qPrintable(filePath), qPrintable(reason));
    emit printFailed(filePath, reason);
    return false;
}

QString PagePrintManager::getFilePath(const QString& aFileName) const
{
    return mFolder + QLatin1Char('/') + aFileName;
}

} // namespace Hmi::Shared
