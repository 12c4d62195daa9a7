#include <hmi/shared/application/LoggingRules.h>

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>

#include <hmi/shared/application/LoggingCategory.h>

namespace Hmi::Shared {

QStringList LoggingRules::parse(const QString& aText)
{
    QStringList rules;
    bool inRules = true;
    const QStringList lines = aText.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString& line : lines) {
        const QString trimmed = line.trimmed();
        if (trimmed.isEmpty() || trimmed.startsWith(QLatin1Char(';')))
            continue;
        if (trimmed.startsWith(QLatin1Char('[')))
            inRules = trimmed.toLower() == QLatin1String("[rules]");
        else if (inRules)
            rules.append(trimmed);
    }
    return rules;
}

bool LoggingRules::load(const QString& aFilePath)
{
    QFile file(aFilePath);
    const QString fullPath = QDir().absoluteFilePath(aFilePath);
    // Only a regular file is opened: opening a pipe would wait for its writer.
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly)) {
        qCWarning(hmiShared, "HMI logging configuration file not found:\n    %s", qUtf8Printable(fullPath));
        return false;
    }
    const QByteArray content = file.read(MaximumFileSize + 1);
    if (content.size() > MaximumFileSize) {
        qCWarning(hmiShared, "HMI logging configuration file ignored, it is larger than %lld bytes:\n    %s",
                  static_cast<long long>(MaximumFileSize), qUtf8Printable(fullPath));
        return false;
    }
    // From the bare pointer, so that the text ends at the first NUL byte.
    const QStringList rules = parse(QString::fromUtf8(content.constData()));
    if (!rules.isEmpty())
        QLoggingCategory::setFilterRules(rules.join(QLatin1Char('\n')));
    return true;
}

} // namespace Hmi::Shared
