#pragma once

#include <QObject>
#include <QString>

#include <hmi/shared/LifecycleListener.h>

class SignalVehiclePolicy;

/**
 * Puts into effect what the active profile's settings say of how the head unit looks and speaks: the shared
 * setting "languageText", and "theme", which it publishes. The automatic theme is the night's while the
 * vehicle says that it is night. A language or theme that cannot be had leaves the one before, after the
 * library's warning.
 *
 * A module of the product; at work between initialize() and deInitialize(). Main thread only.
 */
class Appearance : public QObject, public Hmi::Shared::LifecycleListener
{
    Q_OBJECT

public:
    /** Values of the setting "theme"; any other is as the first. */
    enum Theme { ThemeAutomatic, ThemeDay, ThemeNight };
    Q_ENUM(Theme)

    Appearance() = default;

    /** The vehicle, whose night the automatic theme follows, stays the caller's; null for none. */
    void setVehicle(const SignalVehiclePolicy* aVehicle);

    QString getName() const override { return QStringLiteral("appearance"); }
    /** The shared settings have to be published. */
    bool initialize() override;
    void deInitialize() override;
    void deInitializeLate() override {}

private:
    void applyLanguage();
    void applyTheme();

    const SignalVehiclePolicy* mVehicle = nullptr;
};
