#pragma once

#include <QString>

#include <hmi/core/foundation/SingletonQml.h>

namespace Hmi::Shared {

/** The constants of navigation, "HmiNavigation" in QML; an object for every engine. */
class Q_DECL_EXPORT HmiNavigation : public Core::SingletonQml<HmiNavigation>
{
    Q_OBJECT
    Q_PROPERTY(QString instructionsSetting READ getInstructionsSetting CONSTANT)
    friend class Core::SingletonQml<HmiNavigation>;

public:
    /** Whether guidance speaks: the values of the setting named by instructionsSetting. */
    enum Instructions {
        InstructionsMuted = 1,
        InstructionsSpoken = 2,
        InstructionsDefault = InstructionsSpoken
    };
    Q_ENUM(Instructions)

    QString getInstructionsSetting() const { return QStringLiteral("navigationInstructions"); }

private:
    HmiNavigation(QQmlEngine*, QJSEngine*) {}
};

} // namespace Hmi::Shared
