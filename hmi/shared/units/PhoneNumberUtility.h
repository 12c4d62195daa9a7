#pragma once

#include <QMetaType>
#include <QObject>
#include <QString>

#include <hmi/core/foundation/SingletonCppQml.h>

namespace Hmi::Shared {

/**
 * The parts of a number of the North American Numbering Plan. All four are empty when the text is no such
 * number; exchange and subscriber are always both there or both empty.
 */
struct Q_DECL_EXPORT ParsedPhoneNumberNanp
{
    Q_GADGET
    Q_PROPERTY(QString countryCode MEMBER countryCode)
    Q_PROPERTY(QString areaCode MEMBER areaCode)
    Q_PROPERTY(QString exchangeCode MEMBER exchangeCode)
    Q_PROPERTY(QString subscriberCode MEMBER subscriberCode)

public:
    QString countryCode;    ///< "1" or empty
    QString areaCode;       ///< three digits or empty
    QString exchangeCode;   ///< three digits
    QString subscriberCode; ///< four digits
};

/**
 * Cleans and formats telephone numbers for dialling and display; the singleton "PhoneNumberUtility" in QML.
 * Only numbers of the North American Numbering Plan are formatted; every other number is shown as it was
 * entered.
 *
 * Native code calls the operations without an instance, from any thread, also at the same time. They keep no
 * state, log nothing and cannot fail; their time grows linearly with the length of the text, whatever it
 * holds.
 */
class Q_DECL_EXPORT PhoneNumberUtility : public Core::SingletonCppQml<PhoneNumberUtility>
{
    Q_OBJECT
    friend class Core::SingletonCppQml<PhoneNumberUtility>;

public:
    /** Leaves what can be dialled: digits, "#", "+", "*" and the pauses "w" and "p". Changes in place. */
    Q_INVOKABLE static void stripSeparators(QString& a_number);

    /** The same for texts that cannot be changed in place, as those of QML: returns what is left. */
    Q_REQUIRED_RESULT Q_INVOKABLE static QString stripSeparators(const QString& a_number);

    /**
     * Splits a number whose parts may stand apart by any run of "-", "." and blanks, the area code also in
     * parentheses. The text is taken as it is: with anything before or after the number, other than one final
     * line feed, it is none. Area and exchange codes begin with 2 to 9.
     */
    Q_INVOKABLE static Hmi::Shared::ParsedPhoneNumberNanp
    parseNorthAmericanNumberingPlan(const QString& a_number);

    /** As "1 (913) 742-0662", without the codes that the number lacks; the text itself when it is none. */
    Q_INVOKABLE static QString format(const QString& a_number);

private:
    PhoneNumberUtility(QQmlEngine* aEngine, QJSEngine* aScriptEngine);
};

} // namespace Hmi::Shared

Q_DECLARE_METATYPE(Hmi::Shared::ParsedPhoneNumberNanp)
