#pragma once

#include <QLocale>

/// Lets this process write figures as a locale does, such as "fr_CA", for as long as it lives.
class DefaultLocale
{
public:
    explicit DefaultLocale(const QLocale &locale) { QLocale::setDefault(locale); }
    explicit DefaultLocale(const QString &name)
        : DefaultLocale(QLocale(name))
    {
    }
    ~DefaultLocale() { QLocale::setDefault(before); }
    Q_DISABLE_COPY_MOVE(DefaultLocale)

private:
    QLocale before; // as it is until the body of the constructor runs
};
