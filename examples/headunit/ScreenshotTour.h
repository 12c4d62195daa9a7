#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

#include <hmi/shared/application/modules/PagePrintManager.h>

class SignalVehiclePolicy;

/**
 * Shows every screen in turn, saves a picture of each and then ends the application: for documents, and to
 * see from a build machine how the product looks. It begins with the first speed of the vehicle, or without
 * one after some seconds. Language and theme are chosen for the pictures, without changing the user's
 * settings. Main thread only.
 */
class ScreenshotTour : public QObject
{
    Q_OBJECT

public:
    /** The window is the one of Main.qml; both have to outlive the tour. */
    ScreenshotTour(const QString& aFolder, QObject& aWindow, const SignalVehiclePolicy& aVehicle);

private:
    void begin();
    void openNext();
    void print();
    void goOn();

    Hmi::Shared::PagePrintManager mPrinter;
    QObject& mWindow;
    QTimer mTimer;
    int mNext = 0;
};
