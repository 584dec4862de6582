#include "CommandLineOptions.h"

#include <QByteArray>
#include <QList>

#include <getopt.h>
#include <utility>
#include <vector>

namespace
{
constexpr qsizetype longOptionsSize = 1024;

struct LongOption {
    QByteArray name;
    int argument = no_argument;
    int result = 0;
};

/** Cuts `entry` at its first `separator` and returns what follows, or a null array without one. */
QByteArray cutAt(QByteArray &entry, char separator)
{
    const qsizetype at = entry.indexOf(separator);
    if (at < 0)
        return {};
    const QByteArray rest = entry.mid(at + 1);
    entry.truncate(at);
    return rest.isNull() ? QByteArray("") : rest;
}

LongOption parseLongOption(QByteArray entry)
{
    LongOption option;
    if (const QByteArray result = cutAt(entry, '='); !result.isEmpty())
        option.result = static_cast<unsigned char>(result.front());
    if (const QByteArray colons = cutAt(entry, ':'); !colons.isNull())
        option.argument = colons.startsWith(':') ? optional_argument : required_argument;
    option.name = entry;
    return option;
}

QList<LongOption> parseLongOptions(const char *text)
{
    QList<LongOption> options;
    for (const QByteArray &entry : QByteArray(text).left(longOptionsSize - 1).split('|')) {
        if (!entry.isEmpty())
            options.append(parseLongOption(entry));
    }
    return options;
}

/** The table for getopt_long. Its names live as long as `options`. */
std::vector<option> tableOf(const QList<LongOption> &options)
{
    std::vector<option> table;
    for (const LongOption &each : options)
        table.push_back({each.name.constData(), each.argument, nullptr, each.result});
    table.push_back({});
    return table;
}

QString keyOf(int character)
{
    return QString(QLatin1Char(static_cast<char>(character)));
}

QString optionName(const QString &key)
{
    return (key.size() == 1 ? QStringLiteral("-") : QStringLiteral("--")) + key;
}
} // namespace

const QString CommandLineOptions::UnknownOption = QStringLiteral("-");

CommandLineOptions::CommandLineOptions(int argc, char **argv, const char *shortOptions,
                                       const char *longOptions)
{
    const QList<LongOption> declared = parseLongOptions(longOptions);
    const std::vector<option> table = tableOf(declared);
    // getopt_long puts the operands last; the caller's vector stays in its order.
    std::vector<char *> arguments(argv, argv + argc);
    arguments.push_back(nullptr);

    // Zero makes getopt start afresh at 1, without what it remembers of an earlier vector.
    optind = 0;
    int index = -1;
    int result = 0;
    while ((result = getopt_long(argc, arguments.data(), shortOptions, table.data(), &index)) !=
           -1) {
        const QString argument = QString::fromLocal8Bit(optarg);
        if (result == '?') {
            insert(UnknownOption, QString());
            result = optopt;
        }
        if (result != 0)
            insert(keyOf(result), argument);
        if (index >= 0)
            insert(QString::fromLocal8Bit(declared[std::exchange(index, -1)].name), argument);
    }
    for (int i = optind; i < argc; ++i)
        operands.append(QString::fromLocal8Bit(arguments[static_cast<size_t>(i)]));
}

CommandLineOptions::~CommandLineOptions() = default;

void CommandLineOptions::setOption(const QString &key, const QString &value)
{
    insert(key, value);
}

QString CommandLineOptions::value(const QString &key, const QString &defaultValue) const
{
    return QMap::value(key, defaultValue);
}

int CommandLineOptions::intValue(const QString &key, int defaultValue) const
{
    bool isNumber = false;
    const int number = value(key, QString()).toInt(&isNumber, 10);
    return isNumber ? number : defaultValue;
}

unsigned CommandLineOptions::uintValue(const QString &key, unsigned defaultValue) const
{
    bool isNumber = false;
    const unsigned number = value(key, QString()).toUInt(&isNumber, 10);
    return isNumber ? number : defaultValue;
}

QStringList CommandLineOptions::toArguments() const
{
    QStringList arguments;
    for (auto entry = cbegin(); entry != cend(); ++entry) {
        arguments.append(optionName(entry.key()));
        if (!entry.value().isEmpty())
            arguments.append(entry.value());
    }
    return arguments + operands;
}

QString CommandLineOptions::describe() const
{
    QStringList entries;
    for (auto entry = cbegin(); entry != cend(); ++entry)
        entries.append(QStringLiteral("<%1>=<%2>").arg(entry.key(), entry.value()));
    const QString separator = QStringLiteral("\n\t");
    return QStringLiteral("options(%1):\n\t").arg(size()) + entries.join(separator) +
           QStringLiteral("\nnone-options(%1):\n\t<%2>")
               .arg(QString::number(operands.size()), operands.join(QStringLiteral(">\n\t<")));
}
