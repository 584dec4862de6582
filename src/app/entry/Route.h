#pragma once

#include <string>
#include <vector>

/** As much of an `lpr` command line as it takes to send the run on its way. */
struct CommandLine {
    /** It holds an option that the program does not know, or one without its argument. */
    bool isUnknown = false;
    /** It holds `--ui`. */
    bool hasUi = false;
    /** -T; empty where not given. */
    std::string title;
    /** What is no option, in order. */
    std::vector<std::string> operands;
};

/** Reads a vector without closing null pointer. getopt reorders it, so it is a copy. */
CommandLine readCommandLine(std::vector<char *> argv);

/**
 * Whether a run goes to the system client as it is, without a dialog, whatever display there is:
 * the command line holds an option that the program does not know, or switches the window off
 * (`--ui False`), or a companion application prints (`companionPrints`: PRINT_FROM_ORRN is set).
 */
bool mustHandOver(const CommandLine &commandLine, bool companionPrints);
