#include <hmi/core/language/TranslationFile.h>

#include <QCoreApplication>
#include <cstring>

#include <hmi/core/input/BoundedFile.h>
#include <hmi/core/resources/BoundedBytes.h>

// file     = magic section*
// section  = tag:u8 length:u32 bytes
// hashes   = (hash:u32 offset:u32)*, the offset of a message in the section of messages
// message  = field* end:u8
// field    = tag:u8 length:u32 bytes, or obsolete:u8 u32
// contexts = count:u16 offset:u16{count} chains; an offset counts pairs of bytes from the chains on
// chain    = (length:u8 bytes)* 0:u8
namespace Hmi::Core {

static constexpr uchar Magic[] = {0x3c, 0xb8, 0x64, 0x18, 0xca, 0xef, 0x9c, 0x95,
                                  0xcd, 0x21, 0x1c, 0xbf, 0x60, 0xa1, 0xbd, 0xdd};

struct Sections
{
    BoundedBytes contexts;
    BoundedBytes hashes;
    BoundedBytes messages;
};

static bool store(quint8 aTag, const BoundedBytes& aContent, Sections& aSections)
{
    switch (aTag) {
    case 0x2f:
        aSections.contexts = aContent;
        return true;
    case 0x42:
        aSections.hashes = aContent;
        return true;
    case 0x69:
        aSections.messages = aContent;
        return true;
    case 0x88: // the plural rules, which Qt checks
    case 0xa7: // the language
        return true;
    default:
        return false;
    }
}

static bool readSections(const BoundedBytes& aFile, Sections& aSections)
{
    quint64 offset = sizeof Magic;
    while (offset < aFile.size()) {
        if (!aFile.has(offset, 5))
            return false;
        const auto length = aFile.number<quint32>(offset + 1);
        // Qt stops at an empty section, and would so see other sections than are checked here.
        if (length == 0 || !aFile.has(offset + 5, length) ||
            !store(aFile.number<quint8>(offset), aFile.part(offset + 5, length), aSections))
            return false;
        offset += 5 + quint64(length);
    }
    return aSections.hashes.size() > 0 && aSections.messages.size() > 0;
}

static bool isMessage(const BoundedBytes& aMessages, quint64 aOffset)
{
    enum Tag : quint8 { End = 1, Translation = 3, Obsolete = 5, SourceText = 6, Context = 7, Comment = 8 };
    while (aMessages.has(aOffset, 1)) {
        const auto tag = aMessages.number<quint8>(aOffset++);
        if (tag == End)
            return true;
        if (tag != Translation && tag != Obsolete && tag != SourceText && tag != Context && tag != Comment)
            return false;
        if (!aMessages.has(aOffset, 4))
            return false;
        const quint64 length = tag == Obsolete ? 0 : aMessages.number<quint32>(aOffset);
        aOffset += 4 + length;
    }
    return false;
}

static bool areMessages(const Sections& aSections)
{
    if (aSections.hashes.size() % 8 != 0)
        return false;
    for (quint64 offset = 4; offset < aSections.hashes.size(); offset += 8) {
        if (!isMessage(aSections.messages, aSections.hashes.number<quint32>(offset)))
            return false;
    }
    return true;
}

static bool isChain(const BoundedBytes& aContexts, quint64 aOffset)
{
    while (aContexts.has(aOffset, 1)) {
        const auto length = aContexts.number<quint8>(aOffset);
        if (length == 0)
            return true;
        aOffset += 1 + quint64(length);
    }
    return false;
}

static bool areContexts(const BoundedBytes& aContexts)
{
    if (aContexts.size() == 0)
        return true;
    if (!aContexts.has(0, 2))
        return false;
    const quint64 count = aContexts.number<quint16>(0);
    if (count == 0 || !aContexts.has(2, 2 * count))
        return false;
    for (quint64 index = 0; index < count; ++index) {
        const quint64 chain = aContexts.number<quint16>(2 + 2 * index);
        if (chain != 0 && !isChain(aContexts, 2 + 2 * count + 2 * chain))
            return false;
    }
    return true;
}

static bool isIntact(const BoundedBytes& aFile)
{
    Sections sections;
    return aFile.has(0, sizeof Magic) && std::memcmp(aFile.data(), Magic, sizeof Magic) == 0 &&
           readSections(aFile, sections) && areMessages(sections) && areContexts(sections.contexts);
}

std::unique_ptr<TranslationFile> TranslationFile::load(const QString& aFilePath)
{
    std::unique_ptr<TranslationFile> result(new TranslationFile);
    QString problem;
    result->mContent = readBounded(aFilePath, MaximumFileSize, problem);
    if (!problem.isEmpty()) {
        qWarning("The translation '%s' cannot be read: %s.", qUtf8Printable(aFilePath),
                 qUtf8Printable(problem));
        return nullptr;
    }
    const QByteArray& content = result->mContent;
    const auto* bytes = reinterpret_cast<const uchar*>(content.constData());
    if (!isIntact(BoundedBytes(bytes, quint64(content.size()))) ||
        !result->mTranslator.load(bytes, content.size())) {
        qWarning("The translation '%s' is damaged or holds no texts; build it with lrelease.",
                 qUtf8Printable(aFilePath));
        return nullptr;
    }
    return result;
}

void TranslationFile::install() { QCoreApplication::installTranslator(&mTranslator); }

} // namespace Hmi::Core
