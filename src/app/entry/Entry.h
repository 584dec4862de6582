#pragma once

#include <string>
#include <vector>

/**
 * One run of the program, from its command line to its exit status.
 *
 * Stands on the standard library alone: a run that is handed over loads neither the toolkit nor the
 * print library, which takes about as long as the whole run of the system client.
 */
class Entry
{
public:
    /** The exit statuses that are the program's own; otherwise it is the system client's. */
    enum ExitStatus { NoFileChosen = 0, InputNotStored = 1, DialogRejected = 2 };

    Entry(int argc, char **argv);
    int run();

    /** The title of the job: -T, or "(stdin)" for captured input. */
    const std::string &jobTitle() const { return m_jobTitle; }

private:
    /** Captures standard input as the file to print. False: it came, but could not be stored. */
    bool captureInput(bool handOverAsked, bool hasDisplay);

    int m_argc;
    char **m_argv;
    std::string m_jobTitle;
    std::vector<std::string> m_files;
};
