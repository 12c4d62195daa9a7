#pragma once

#include <QObject>
#include <QString>

namespace Hmi::Shared {

/** The version of the software that this library belongs to. A negative part is one that it does not have. */
namespace ProductInfoConstants {
constexpr int SoftwareVersionMajor = 3;
constexpr int SoftwareVersionMinor = 8;
constexpr int SoftwareVersionMicro = -1;
} // namespace ProductInfoConstants

/** The files that tell about a unit, each by its first line, as they are where the configuration names no
 * others. */
struct ProductInfoFiles
{
    QString hardwareEsn = QStringLiteral("/media/otp/ESN");
    QString hardwareVersion = QStringLiteral("/sys/firmware/devicetree/base/board/pcb_revision");
    QString softwareVersion = QStringLiteral("/etc/korvex-sw-version");
};

/**
 * The identity of the unit: its hardware, as files tell it, and its software. QML creates it as ProductInfo.
 * Main thread only.
 *
 * A value is the first line of a regular file, UTF-8 text of at most MaximumLineLength bytes; it ends at a
 * NUL as device-tree texts do. A file that cannot be read so is reported as critical on each reading. The
 * values have no change signal: what a binding showed is not read again by itself.
 */
class Q_DECL_EXPORT ProductInfo : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString hardwareEsn READ getHardwareEsn CONSTANT)
    Q_PROPERTY(QString hardwareVersion READ getHardwareVersion CONSTANT)
    Q_PROPERTY(int softwareVersionCode READ getSoftwareVersionCode CONSTANT)
    Q_PROPERTY(int softwareVersionMajor READ getSoftwareVersionMajor CONSTANT)
    Q_PROPERTY(int softwareVersionMicro READ getSoftwareVersionMicro CONSTANT)
    Q_PROPERTY(int softwareVersionMinor READ getSoftwareVersionMinor CONSTANT)
    Q_PROPERTY(QString softwareVersionString READ getSoftwareVersionString CONSTANT)

public:
    static constexpr int MaximumLineLength = 4096;

    /** Of the files that the configuration names. */
    explicit ProductInfo(QObject* aParent = nullptr);
    explicit ProductInfo(const ProductInfoFiles& aFiles, QObject* aParent = nullptr);

    /** The electronic serial number. Once read it is kept for the process, for all objects that name the same
     * file; empty, and read again by the next call, until there is one. */
    QString getHardwareEsn() const;

    /** The revision of the circuit board, kept as getHardwareEsn(). */
    QString getHardwareVersion() const;

    int getSoftwareVersionCode() const;
    int getSoftwareVersionMajor() const { return ProductInfoConstants::SoftwareVersionMajor; }
    int getSoftwareVersionMicro() const { return ProductInfoConstants::SoftwareVersionMicro; }
    int getSoftwareVersionMinor() const { return ProductInfoConstants::SoftwareVersionMinor; }

    /** Read by each call; "XX.XX.XX" when the file cannot be read. */
    QString getSoftwareVersionString() const;

    /** A number that orders versions: two digits each for minor and micro, so 30805 for 3.8.5. Without micro
     * as with 0; -1 without major or minor. */
    static constexpr int softwareVersionCode(int aMajor, int aMinor, int aMicro)
    {
        return aMajor < 0 || aMinor < 0 ? -1 : 10000 * aMajor + 100 * aMinor + (aMicro < 0 ? 0 : aMicro);
    }

private:
    const ProductInfoFiles mFiles;
};

} // namespace Hmi::Shared
