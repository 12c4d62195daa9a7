#include "VirtualScreen.h"

#include <cstdio>
#include <unistd.h>

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>
// Its macros are not for what follows.
#undef Bool
#undef None

struct VirtualScreen::Connection
{
    explicit Connection(const QByteArray& aName) : display(XOpenDisplay(aName.constData())) {}
    ~Connection()
    {
        if (display)
            XCloseDisplay(display);
    }
    Q_DISABLE_COPY(Connection)

    Window root() const { return DefaultRootWindow(display); }

    Display* const display;
};

VirtualScreen::VirtualScreen() = default;

VirtualScreen::~VirtualScreen()
{
    mConnection.reset();
    mServer.kill();
    mServer.waitForFinished();
}

bool VirtualScreen::start()
{
    mServer.start(QStringLiteral("Xvfb"),
                  {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                   QStringLiteral("0"), QStringLiteral("800x480x24"), QStringLiteral("-nolisten"),
                   QStringLiteral("tcp"), QStringLiteral("-noreset")});
    // It prints its number when it listens.
    if (mServer.waitForReadyRead(20000)) {
        mName = QLatin1Char(':') + QString::fromLatin1(mServer.readAllStandardOutput()).trimmed();
        mConnection = std::make_unique<Connection>(mName.toLatin1());
    }
    if (mConnection && mConnection->display)
        return true;
    std::fputs(mServer.readAllStandardError().constData(), stderr);
    return false;
}

void VirtualScreen::setProperty(const char* aName, const QByteArray& aText)
{
    Display* const display = mConnection->display;
    XChangeProperty(display, mConnection->root(), XInternAtom(display, aName, False),
                    XInternAtom(display, "STRING", False), 8, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(aText.constData()), aText.size());
    XSync(display, False);
}

void VirtualScreen::click(QPoint aPlace)
{
    press(aPlace);
    release();
}

void VirtualScreen::press(QPoint aPlace)
{
    moveTo(aPlace);
    button(Button1, true);
}

void VirtualScreen::moveTo(QPoint aPlace)
{
    XTestFakeMotionEvent(mConnection->display, -1, aPlace.x(), aPlace.y(), CurrentTime);
    XSync(mConnection->display, False);
}

void VirtualScreen::release() { button(Button1, false); }

void VirtualScreen::wheel(QPoint aPlace, int aSteps)
{
    moveTo(aPlace);
    for (int step = 0; step < qAbs(aSteps); ++step) {
        button(aSteps > 0 ? Button5 : Button4, true);
        button(aSteps > 0 ? Button5 : Button4, false);
    }
}

void VirtualScreen::type(const QString& aText)
{
    // The symbols of Latin 1 are their codes.
    for (const char letter : aText.toLatin1())
        key(static_cast<unsigned char>(letter));
}

QImage VirtualScreen::grab() const
{
    XImage* const grabbed =
        XGetImage(mConnection->display, mConnection->root(), 0, 0, 800, 480, AllPlanes, ZPixmap);
    const QImage image = QImage(reinterpret_cast<const uchar*>(grabbed->data), grabbed->width,
                                grabbed->height, grabbed->bytes_per_line, QImage::Format_RGB32)
                             .copy();
    XDestroyImage(grabbed);
    return image;
}

void VirtualScreen::button(unsigned aButton, bool aDown)
{
    XTestFakeButtonEvent(mConnection->display, aButton, aDown, CurrentTime);
    XSync(mConnection->display, False);
}

void VirtualScreen::key(unsigned long aSymbol)
{
    Display* const display = mConnection->display;
    const KeyCode code = XKeysymToKeycode(display, aSymbol);
    const KeyCode shift = XKeysymToKeycode(display, XK_Shift_L);
    const bool shifted = XkbKeycodeToKeysym(display, code, 0, 0) != aSymbol;
    if (shifted)
        XTestFakeKeyEvent(display, shift, True, CurrentTime);
    XTestFakeKeyEvent(display, code, True, CurrentTime);
    XTestFakeKeyEvent(display, code, False, CurrentTime);
    if (shifted)
        XTestFakeKeyEvent(display, shift, False, CurrentTime);
    XSync(display, False);
}
