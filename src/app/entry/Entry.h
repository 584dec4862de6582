#pragma once

#include <QString>
#include <QStringList>

/** One run of the program, from its command line to its exit status. */
class Entry
{
public:
    /** The exit statuses that are the program's own; otherwise it is the system client's. */
    enum ExitStatus { NoFileChosen = 0, InputNotStored = 1, DialogRejected = 2 };

    Entry(int argc, char **argv);
    int run();

    /** The title of the job: -T, or "(stdin)" for captured input. */
    const QString &jobTitle() const { return m_jobTitle; }

private:
    /** Captures standard input as the file to print. False: it came, but could not be stored. */
    bool captureInput(bool handOverAsked, bool hasDisplay);

    int m_argc;
    char **m_argv;
    QString m_jobTitle;
    QStringList m_files;
};
