#pragma once

#include <QStringList>

#include <vector>

class LPRArguments;

/**
 * The part of a run that needs windows, kept in a library of its own: runs without a dialog do not
 * load the window toolkit.
 */
struct DialogRun {
    enum class Outcome {
        /** The dialog was accepted: `arguments` and `files` say what to print and how. */
        Accepted,
        /** The print dialog was cancelled. */
        Rejected,
        /** No file was given and none was chosen. */
        NoFiles
    };

    /** argv for the application object: the program's name and the toolkit's options. */
    std::vector<char *> toolkitArguments;
    /** Where plug-ins for the properties dialog may lie. */
    QStringList pluginDirectories;
    /** The command line; gets the chosen destination and the job options. */
    LPRArguments *arguments = nullptr;
    /** What is to be printed; filled from a file dialog when empty. */
    QStringList files;
};

/** Shows the dialogs. Makes the application object, so it can be called once in a process. */
using RunDialogs = DialogRun::Outcome (*)(DialogRun &run);
/** The library and the function of the type above that it exports. */
constexpr const char *DialogLibrary = "libvesk_dialogs.so";
constexpr const char *DialogFunction = "vesk_run_dialogs";
