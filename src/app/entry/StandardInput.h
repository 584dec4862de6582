#pragma once

#include <string>

/**
 * Captures a job that arrives on standard input into a temporary file.
 *
 * The file's name lies in static storage, where the handler of SIGHUP, SIGINT and SIGTERM finds it:
 * from its creation to removeFile() the file is removed on each of the three, and the process ends
 * with the signal's number. It is removed, too, when the process exits for another reason.
 */
namespace StandardInput
{
enum class Result {
    /** No data came: nothing was captured. */
    Nothing,
    /** The file fileName() holds all of the input. */
    Captured,
    /** Data came, but no file could be created for it: `error` says why. */
    Dropped,
    /** The input could not be stored whole: no file is left; `error` says why. */
    Failed
};

/** How long capture() waits for the first data where a dialog can ask for a file instead. */
constexpr int PatienceMs = 2000;
/** Waits as long as it takes. */
constexpr int NoLimit = -1;

/** Makes the three signals, and an abort, remove the file and end the process. */
void installSignalHandlers();

/**
 * Reads `descriptor` to its end into the file. Gives up when nothing can be read within
 * `patienceMs`. If the file cannot be created the input is dropped and the result is Nothing.
 */
Result capture(int descriptor, int patienceMs, std::string &error);

/** The file's name; empty where there is none. */
const char *fileName();
/** Removes the file, if there is one. */
void removeFile();
} // namespace StandardInput
