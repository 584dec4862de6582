#pragma once

#include "CommandLineOptions.h"

class PrinterOptions;

/** The command line of `lpr`. */
class LPRArguments : public CommandLineOptions
{
public:
    LPRArguments(int argc, char **argv);

    /** Title and copies reach their second key as well; job options ("o") accumulate. */
    void setOption(const QString &key, const QString &value) override;

    /** Writes the command line's job options into `options`. */
    void applyTo(PrinterOptions &options) const;
    /** Rewrites the table from the job options that the dialog finally holds. */
    void takeFrom(const PrinterOptions &options);
    /** `value` with a backslash before each of `"`, `\`, backtick, space and `$`. */
    static QString escaped(const QString &value);
};

/**
 * Hands the job options of an `lpr` command line to `options`: those of `-o` in their order, then
 * `-T`, `-p`, `-h` and `-#`, which replace same-named ones.
 */
void applyJobOptions(const CommandLineOptions &commandLine, PrinterOptions &options);
