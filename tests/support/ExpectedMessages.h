#pragma once

#include <QString>
#include <QtGlobal>

/**
 * What a check expects the code to log. While a check runs, every message of level warning or above that was
 * not announced here fails the check, and so does an announced one that never came.
 */
namespace HmiTest {

/** Announces one warning with exactly this text. */
void expectWarning(const QString& aText);

/** Announces one critical message with exactly this text. */
void expectCritical(const QString& aText);

/** Announces one message whose text matches this regular expression as a whole. */
void expectMessageMatching(QtMsgType aType, const QString& aPattern);

} // namespace HmiTest
