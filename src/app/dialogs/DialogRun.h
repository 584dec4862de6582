#pragma once

#include <string>
#include <vector>

/**
 * What of a run needs windows, kept in a library of its own: runs without a dialog do not
 * load the window toolkit. Only the standard library's types cross the border.
 */
struct DialogRun {
    enum class Outcome {
        /** The dialog was accepted: `clientOptions` and `files` say how to print and what. */
        Accepted,
        /** The print dialog was cancelled. */
        Rejected,
        /** No file was given and none was chosen. */
        NoFiles
    };

    /** argv for the application object: the program's name and the toolkit's options. */
    std::vector<char *> toolkitArguments;
    /** The program's name and the rest of the command line, lpr's. */
    std::vector<char *> arguments;
    /** The program's own path. */
    std::string programPath;
    /** What is to be printed, by names as they came, in any encoding; asked for where empty. */
    std::vector<std::string> files;
    /** After acceptance: the options for the system client, in front of the files. */
    std::vector<std::string> clientOptions;
};

/** Shows the dialogs. Makes the application object, so it can be called once in a process. */
using RunDialogs = DialogRun::Outcome (*)(DialogRun &run);
/** The library and the function of the type above that it exports. */
constexpr const char *DialogLibrary = "libvesk_dialogs.so";
constexpr const char *DialogFunction = "vesk_run_dialogs";
