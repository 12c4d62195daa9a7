#pragma once

#include <QSharedPointer>
#include <QString>
#include <QVector>

#include <hmi/core/foundation/SingletonCppQml.h>

class QImage;
class QQuickItem;
class QQuickItemGrabResult;
class QQuickWindow;

namespace Hmi::Shared {

/**
 * Saves what is on a screen as a PNG file in the configured screen snapshot path, which is created when
 * missing. A file is written whole or not at all; one of the same name is replaced.
 *
 * A file name stands for itself: one that is empty or contains "/", "\" or ".." is refused. Main thread only;
 * encoding takes tens of milliseconds.
 */
class Q_DECL_EXPORT PagePrintManager : public Core::SingletonCppQml<PagePrintManager>
{
    Q_OBJECT
    friend class Core::SingletonCppQml<PagePrintManager>;

public:
    /** The folder that takes the files. */
    explicit PagePrintManager(const QString& aFolder);

    /**
     * Prints a window or an item. True when it was started, and then exactly one of printed() and
     * printFailed() follows: for a window usually before this returns, for an item with its next frame.
     * False, after a warning and with no signal, when the object is neither or has no window or size, or the
     * name is refused. A window that the platform cannot read back is printed without its background colour.
     */
    Q_INVOKABLE bool print(QObject* aItemOrWindow, const QString& aFileName);

    /** Saves a picture; true when it was written. The same signals; a refused name is printFailed() as well.
     */
    bool save(const QImage& aImage, const QString& aFileName);

    /** The path of a file of that name in the folder. */
    QString getFilePath(const QString& aFileName) const;

signals:
    void printed(const QString& aFilePath);

    /** Also logged as a warning. The reason is English text for a log, not for the user. */
    void printFailed(const QString& aFilePath, const QString& aReason);

private:
    PagePrintManager(QQmlEngine* aEngine, QJSEngine* aScriptEngine);

    bool printItem(QQuickItem* aItem, const QString& aFileName);
    void finishItem(const QSharedPointer<QQuickItemGrabResult>& aResult, const QString& aFileName);

    const QString mFolder;
    QVector<QSharedPointer<QQuickItemGrabResult>> mPending;
};

} // namespace Hmi::Shared
