#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

/**
 * A parsed command line: a table of option key to value, and the operands.
 *
 * A short option is keyed by its character, a long one by its name; an option without argument has
 * a null value. The key "-" records an unknown option or a missing argument.
 */
class CommandLineOptions : public QMap<QString, QString>
{
public:
    /** The key of "the command line held something that the parser does not know". */
    static const QString UnknownOption;

    /**
     * Parses at once, with GNU getopt_long. `shortOptions` is getopt's; `longOptions` is a list
     * separated by '|' of `name`, `name:` (argument) or `name::` (optional argument), each followed
     * by `=c` where getopt_long is to return the character c. At most 1023 bytes of it are used.
     */
    CommandLineOptions(int argc, char **argv, const char *shortOptions, const char *longOptions);
    virtual ~CommandLineOptions();
    CommandLineOptions(const CommandLineOptions &) = default;
    CommandLineOptions &operator=(const CommandLineOptions &) = default;

    virtual void setOption(const QString &key, const QString &value);

    /** The stored value (null for an option without argument), or `defaultValue` without the key.
     */
    QString value(const QString &key, const QString &defaultValue) const;
    /** The value as a base-10 number, or `defaultValue` where it is none. */
    int intValue(const QString &key, int defaultValue) const;
    unsigned uintValue(const QString &key, unsigned defaultValue) const;
    /** The table as arguments in ascending key order, then the operands. */
    QStringList toArguments() const;
    /** Diagnostic text. */
    QString describe() const;

    QStringList operands;
};
