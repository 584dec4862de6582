#pragma once

#include "CupsHandles.h"
#include "PrinterOptions.h"

#include <QFile>
#include <QMap>
#include <QStringList>
#include <QTemporaryDir>

/** Texts that the tests of the option set share. */
namespace TestSupport
{
inline QStringList words(const char *text)
{
    return QString::fromUtf8(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

/** The entries as "name=value" in name order. */
inline QStringList entriesOf(const QMap<QString, QString> &table)
{
    QStringList entries;
    for (auto entry = table.cbegin(); entry != table.cend(); ++entry)
        entries.append(entry.key() + QLatin1Char('=') + entry.value());
    return entries;
}

/** The CUPS options as "name=value" in the array's order. */
inline QStringList arrayOf(const PrinterOptions &options)
{
    QStringList entries;
    for (const cups_option_t &option : options.cupsOptions())
        entries.append(QString::fromLatin1(option.name) + QLatin1Char('=') +
                       QString::fromLocal8Bit(option.value));
    return entries;
}

/** The PPD with every kind of option, opened and at its defaults. */
inline Cups::PpdPtr openMarksPpd()
{
    Cups::PpdPtr ppd = Cups::sharePpd(ppdOpenFile(OPTIONS_TEST_DATA "/marks.ppd"));
    if (ppd)
        ppdMarkDefaults(ppd.get());
    return ppd;
}

inline QString markedChoice(ppd_file_t *ppd, const char *keyword)
{
    const ppd_choice_t *choice = ppdFindMarkedChoice(ppd, keyword);
    return choice ? QString::fromLatin1(choice->choice) : QString();
}
} // namespace TestSupport
