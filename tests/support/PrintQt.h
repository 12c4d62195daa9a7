#pragma once

#include <QSize>
#include <QString>
#include <ostream>

/** How GoogleTest shows Qt's values; found by argument-dependent look-up. */
inline void PrintTo(const QString& aText, std::ostream* aStream)
{
    *aStream << '"' << qPrintable(aText) << '"';
}

inline void PrintTo(const QSize& aSize, std::ostream* aStream)
{
    *aStream << aSize.width() << 'x' << aSize.height();
}
