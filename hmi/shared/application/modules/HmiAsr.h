#pragma once

#include <QString>

#include <hmi/core/foundation/SingletonQml.h>

namespace Hmi::Shared {

/** The constants of speech recognition, "HmiAsr" in QML; an object for every engine. */
class Q_DECL_EXPORT HmiAsr : public Core::SingletonQml<HmiAsr>
{
    Q_OBJECT
    Q_PROPERTY(QString promptVerbositySetting READ getPromptVerbositySetting CONSTANT)
    friend class Core::SingletonQml<HmiAsr>;

public:
    /** How much a speech session says: the values of the setting named by promptVerbositySetting. */
    enum PromptVerbosity {
        PromptVerbosityFull = 1,  ///< asks in whole sentences, with examples
        PromptVerbosityShort = 2, ///< asks in a word
        PromptVerbosityDefault = PromptVerbosityFull
    };
    Q_ENUM(PromptVerbosity)

    QString getPromptVerbositySetting() const { return QStringLiteral("asrSessions"); }

private:
    HmiAsr(QQmlEngine*, QJSEngine*) {}
};

} // namespace Hmi::Shared
