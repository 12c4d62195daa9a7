#include <hmi/core/input/KeyboardModelManager.h>

#include <hmi/core/foundation/HmiCoreConfigs.h>
#include <hmi/core/input/BoundedFile.h>

namespace Hmi::Core {

KeyboardModelManager::KeyboardModelManager(const QString& aKeyboardsPath) :
    mFiles(aKeyboardsPath, QStringLiteral("json"))
{}

KeyboardModelManager::KeyboardModelManager(QQmlEngine*, QJSEngine*) :
    KeyboardModelManager(HmiCoreConfigs::instance()->getKeyboardsPath())
{}

bool KeyboardModelManager::setCurrentLayout(const QString& aLanguage)
{
    KeyboardLayout layout;
    layout.language = mFiles.closestTo(aLanguage);
    if (!layout.language.isEmpty() && layout.language == mLayout.language)
        return true;

    QString problem;
    if (!readLayout(layout, problem)) {
        qWarning("The keyboard layout %s was not taken, \"%s\" stays: %s.",
                 qPrintable(mFiles.filePath(layout.language.isEmpty() ? aLanguage : layout.language)),
                 qPrintable(mLayout.language), qPrintable(problem));
        return false;
    }
    mLayout = layout;
    emit currentLayoutChanged();
    return true;
}

bool KeyboardModelManager::readLayout(KeyboardLayout& aLayout, QString& aProblem) const
{
    if (aLayout.language.isEmpty()) {
        aProblem = QStringLiteral("there is no layout for this language");
        return false;
    }
    const QByteArray json = readBounded(mFiles.filePath(aLayout.language), MaximumFileSize, aProblem);
    return aProblem.isEmpty() && aLayout.read(json, aProblem);
}

} // namespace Hmi::Core
