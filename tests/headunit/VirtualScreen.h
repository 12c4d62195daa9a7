#pragma once

#include <QImage>
#include <QPoint>
#include <QProcess>
#include <QString>
#include <memory>

/**
 * A screen of the check's own, Xvfb's, with the pointer and the keyboard of who sits before it. What they do
 * are events of the X server, as those of real devices. There is no window manager.
 */
class VirtualScreen
{
public:
    VirtualScreen();
    ~VirtualScreen();
    Q_DISABLE_COPY(VirtualScreen)

    /** Whether there is a screen; what Xvfb said is on standard error when not. */
    bool start();
    /** For the variable DISPLAY. */
    QString getName() const { return mName; }
    /** Of the root window, a text. */
    void setProperty(const char* aName, const QByteArray& aText);

    void click(QPoint aPlace);
    void press(QPoint aPlace);
    void moveTo(QPoint aPlace);
    void release();
    /** Downwards for positive steps. */
    void wheel(QPoint aPlace, int aSteps);
    /** Letters of Latin 1, digits and blanks. */
    void type(const QString& aText);

    /** What the screen shows. */
    QImage grab() const;

private:
    struct Connection;

    void button(unsigned aButton, bool aDown);
    void key(unsigned long aSymbol);

    QProcess mServer;
    QString mName;
    std::unique_ptr<Connection> mConnection;
};
