#pragma once

#include <QLocale>

#include <hmi/shared/settings/Setting.h>

namespace Hmi::Shared {

/**
 * The locale that the user chose, kept by its name. Reading or changing the setting makes it the default
 * locale of the whole process. Its default is the member "languageText" of the defaults of the shared
 * settings.
 */
class Q_DECL_EXPORT SettingLocale : public Setting
{
    Q_OBJECT
    Q_PROPERTY(QLocale localeValue READ localeValue NOTIFY localeValueChanged)

public:
    explicit SettingLocale(QObject* aParent = nullptr);

    QVariant getValue() override;

    /** Reads the setting when it was not loaded yet. */
    QLocale localeValue();

signals:
    void localeValueChanged();

public slots:
    /** Applies the value; a name that stands for the locale in use changes nothing. */
    void onSettingValueChanged();

protected:
    /** The locale in use, without reading the setting. */
    QLocale currentLocale() const { return mLocale; }
    /** Makes it the default locale of the process, without a signal. */
    void install(const QLocale& aLocale);

private:
    QLocale mLocale;
};

} // namespace Hmi::Shared
