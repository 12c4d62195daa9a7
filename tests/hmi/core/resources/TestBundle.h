#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

namespace HmiTest {

/** Contents by path. */
using Files = QMap<QString, QByteArray>;

/** Writes the file and the folders above it; as below, a failure fails the check. */
void writeFile(const QString& aPath, const QByteArray& aContent);

/** Compiles the files into a resource bundle with Qt's rcc. */
void writeBundle(const QString& aPath, const Files& aFiles, const QStringList& aOptions = {});

} // namespace HmiTest
