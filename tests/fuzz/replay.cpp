#include "Fuzzing.h"

#include <QDir>
#include <QFile>

/** Feeds each file of a folder to the target: what once was found stays found, with any compiler. */
int main(int argc, char** argv)
{
    HmiFuzz::require(argc == 2, "a folder of inputs is given");
    const QDir folder(QFile::decodeName(argv[1]));
    const QFileInfoList entries = folder.entryInfoList(QDir::Files, QDir::Name);
    for (const QFileInfo& entry : entries) {
        QFile file(entry.filePath());
        const bool opened = file.open(QIODevice::ReadOnly);
        std::printf("%s\n", qUtf8Printable(entry.fileName()));
        std::fflush(stdout);
        HmiFuzz::require(opened, "every input can be read");
        const QByteArray bytes = file.readAll();
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                               static_cast<std::size_t>(bytes.size()));
    }
    std::printf("%d inputs of %s\n", static_cast<int>(entries.size()), qUtf8Printable(folder.path()));
    return entries.isEmpty() ? 1 : 0;
}
