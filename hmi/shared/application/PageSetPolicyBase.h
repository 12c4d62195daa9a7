#pragma once

#include <QMap>
#include <QObject>
#include <QString>

namespace Hmi::Shared {

/**
 * Names the set of pages that the application shows, and holds the replacements for that set's placeholders.
 * A product derives its own policy; this one loads nothing and succeeds. Main thread only.
 */
class Q_DECL_EXPORT PageSetPolicyBase : public QObject
{
    Q_OBJECT

public:
    explicit PageSetPolicyBase(QObject* aParent = nullptr, const QString& aPageSet = QString());

    /** Whether the product shows pages besides its page set. */
    virtual bool hasAdditionalPages() const { return false; }
    /** False when the pages cannot be shown. */
    virtual bool loadPageSet() { return true; }
    /** False when the page set has to do without its theme. */
    virtual bool setUpTheme() { return true; }

    QString getPageSet() const { return mPageSet; }
    /** From the placeholder's name to its replacement. */
    QMap<QString, QString> getPlaceholders() const { return mPlaceholders; }

protected:
    void setPlaceholder(const QString& aName, const QString& aText) { mPlaceholders.insert(aName, aText); }

private:
    const QString mPageSet;
    QMap<QString, QString> mPlaceholders;
};

} // namespace Hmi::Shared
