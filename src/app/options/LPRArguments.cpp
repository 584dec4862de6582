#include "LPRArguments.h"

#include "CupsHandles.h"
#include "JobOptions.h"
#include "LprSyntax.h"
#include "PrinterOptions.h"

namespace
{
const QString jobOptions = QStringLiteral("o");
const QString prettyPrint = QStringLiteral("p");
const QString noBanner = QStringLiteral("h");
const QString copiesAlias = QStringLiteral("n");
const QString copies = QStringLiteral("#");
const QString jobClass = QStringLiteral("C");
const QString jobName = QStringLiteral("J");
const QString title = QStringLiteral("T");

bool asksForNoBanner(const QString &jobSheets)
{
    return jobSheets == QLatin1String(JobOptions::noSheets) ||
           jobSheets == QLatin1String("none,none");
}

QByteArray bytesOf(const CommandLineOptions &commandLine, const QString &key)
{
    return commandLine.value(key, QString()).toLocal8Bit();
}
} // namespace

LPRArguments::LPRArguments(int argc, char **argv)
    : CommandLineOptions(argc, argv, LprSyntax::ShortOptions, LprSyntax::UiOption)
{
}

void LPRArguments::setOption(const QString &key, const QString &value)
{
    if (key == jobClass || key == jobName)
        insert(title, value);
    if (key == copiesAlias)
        insert(copies, value);
    const bool accumulates = key == jobOptions && contains(key);
    insert(key, accumulates ? this->value(key, QString()) + QLatin1Char(' ') + value : value);
}

void LPRArguments::applyTo(PrinterOptions &options) const
{
    applyJobOptions(*this, options);
}

void LPRArguments::takeFrom(const PrinterOptions &options)
{
    QStringList list;
    for (auto option = options.cbegin(); option != options.cend(); ++option) {
        if (option.key() == QLatin1String(JobOptions::copies))
            insert(copies, option.value());
        else if (option.key() == QLatin1String(JobOptions::jobSheets) &&
                 asksForNoBanner(option.value()))
            insert(noBanner, QString());
        else
            list.append(option.key() + QLatin1Char('=') + escaped(option.value()));
    }
    if (list.isEmpty())
        remove(jobOptions);
    else
        insert(jobOptions, list.join(QLatin1Char(' ')));
}

QString LPRArguments::escaped(const QString &value)
{
    QString text;
    for (const QChar c : value) {
        if (QStringLiteral("\"\\` $").contains(c))
            text += QLatin1Char('\\');
        text += c;
    }
    return text;
}

void applyJobOptions(const CommandLineOptions &commandLine, PrinterOptions &options)
{
    Cups::OptionArray array;
    if (commandLine.contains(jobOptions))
        array.parse(bytesOf(commandLine, jobOptions).constData());
    if (commandLine.contains(title))
        array.add(JobOptions::jobTitle, bytesOf(commandLine, title).constData());
    if (commandLine.contains(prettyPrint))
        array.add(JobOptions::prettyPrint, "");
    if (commandLine.contains(noBanner))
        array.add(JobOptions::jobSheets, JobOptions::noSheets);
    if (commandLine.contains(copies))
        array.add(JobOptions::copies,
                  QByteArray::number(commandLine.intValue(copies, 1)).constData());
    for (const cups_option_t &option : array)
        options.setOption(QString::fromLatin1(option.name), QString::fromLocal8Bit(option.value));
}
