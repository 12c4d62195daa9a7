#pragma once

#include <QString>
#include <ostream>

/** How GoogleTest shows Qt's values; found by argument-dependent look-up. */
inline void PrintTo(const QString& aText, std::ostream* aStream)
{
    *aStream << '"' << qPrintable(aText) << '"';
}
