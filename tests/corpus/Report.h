#pragma once

#include <QString>

#include <cstdio>

/** What was looked at in all PPDs of a run. */
struct Counts {
    int ppds = 0;
    /** Options that have a row. */
    int options = 0;
    /** How often a choice was made in an editor. */
    int choices = 0;
    /** How often a custom value was set in an editor. */
    int customValues = 0;
    int conflicts = 0;
    int differingTexts = 0;
    int failures = 0;
};

/** What is found in one PPD. */
struct Report {
    QString path;
    Counts &counts;

    /** Counts and prints a failure. */
    void fail(const QString &what)
    {
        ++counts.failures;
        std::printf("FAILURE %s: %s\n", qUtf8Printable(path), qUtf8Printable(what));
    }
};
