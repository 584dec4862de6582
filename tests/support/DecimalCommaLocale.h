#pragma once

#include <QProcess>
#include <QTemporaryDir>

#include <clocale>
#include <cstring>

/**
 * Makes the process's C locale one with a decimal comma while it lives, as QApplication does for
 * half of Europe. The locale is built once a process from the sources in the package `locales`;
 * where they are missing, isActive() is false and error() says why.
 */
class DecimalCommaLocale
{
public:
    DecimalCommaLocale()
        : m_previous(std::setlocale(LC_ALL, nullptr))
    {
        qputenv("LOCPATH", built().folder.path().toLocal8Bit());
        std::setlocale(LC_ALL, name);
        qunsetenv("LOCPATH");
    }
    DecimalCommaLocale(const DecimalCommaLocale &) = delete;
    DecimalCommaLocale &operator=(const DecimalCommaLocale &) = delete;
    ~DecimalCommaLocale() { std::setlocale(LC_ALL, m_previous.constData()); }

    bool isActive() const { return std::strcmp(std::localeconv()->decimal_point, ",") == 0; }
    const char *error() const { return built().output.constData(); }

private:
    static constexpr char name[] = "de_DE.UTF-8";

    struct Built {
        Built()
        {
            QProcess localedef;
            localedef.setProcessChannelMode(QProcess::MergedChannels);
            localedef.start(QStringLiteral("localedef"),
                            {QStringLiteral("--no-archive"), QStringLiteral("-i"),
                             QStringLiteral("de_DE"), QStringLiteral("-f"), QStringLiteral("UTF-8"),
                             folder.filePath(QLatin1String(name))});
            localedef.waitForFinished();
            output = "localedef did not build a locale (package locales): " +
                     localedef.errorString().toLocal8Bit() + '\n' + localedef.readAll();
        }
        QTemporaryDir folder;
        QByteArray output;
    };

    static const Built &built()
    {
        static const Built locale;
        return locale;
    }

    QByteArray m_previous;
};
