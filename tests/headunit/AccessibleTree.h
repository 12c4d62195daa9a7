#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>
#include <QRect>
#include <QString>
#include <QVector>

/**
 * What a program tells those who cannot see its window: the elements of the AT-SPI tree. This is the registry
 * with which the one program under check announces itself, on a bus of the check's own, so that no
 * accessibility service of the session is needed. The program finds that bus in the property AT_SPI_BUS of
 * the root window.
 */
class AccessibleTree : public QDBusVirtualObject
{
public:
    struct Element
    {
        enum State { Checked = 4, Focused = 12, Showing = 25 }; ///< AT-SPI's numbers

        bool is(State aState) const { return states >> aState & 1; }

        /** To be read, and not to be operated. */
        bool isLabel() const { return role == 29; }

        QString path;
        uint role = 0;
        QString name;
        QString description;
        quint64 states = 0;
        QRect area; ///< on the screen
    };

    explicit AccessibleTree(const QString& aBusAddress);
    ~AccessibleTree() override;
    Q_DISABLE_COPY(AccessibleTree)

    /** Forgets the program; the next one announces itself. */
    void forgetProgram() { mProgram.clear(); }
    /** All elements, from the back to the front; none when no program answers. Of lists, what is rolled away
     * does not show. */
    QVector<Element> read() const;
    /** What the element measures, such as a slider; 0 for others. */
    double getNumber(const Element& aElement) const;

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& aMessage, const QDBusConnection& aBus) override;

private:
    QDBusPendingCall call(const QString& aPath, const char* aInterface, const char* aMethod,
                          const QVariantList& aArguments = {}) const;
    QDBusPendingCall property(const QString& aPath, const char* aInterface, const char* aName) const;
    void readBelow(const QString& aPath, QVector<Element>& aElements) const;

    QDBusConnection mBus;
    QString mProgram;
};
