#pragma once

#include <QMetaMethod>
#include <QString>
#include <QVariantList>
#include <optional>

/** Values as they are written in commands and shown in answers: JSON, where quotes around a text without
 * white space may be missing. */
namespace Hmi::Simulator::SignalWords {

/** With a space between. */
QString toWords(const QVariantList& aValues);

/** The text, without its quotes if it has them; nothing where these do not close. */
std::optional<QString> toText(const QString& aWord);

/** The values that the signal takes, of exactly its types: bool, int, text and list of texts; nothing where
 * the words do not say them. */
std::optional<QVariantList> toArguments(const QMetaMethod& aSignal, const QString& aWords);

} // namespace Hmi::Simulator::SignalWords
