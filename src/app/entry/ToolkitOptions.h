#pragma once

#include <vector>

/**
 * Takes the window toolkit's own options (`-display :1`, `-style fusion`) out of an argument
 * vector, on every platform in the same way, so that they never reach the system client.
 */
namespace ToolkitOptions
{
struct Split {
    /** argv[0] and the toolkit's options, for the application object. The texts are argv's. */
    std::vector<char *> toolkit;
    /** argv[0] and everything else, in order. The texts are argv's. */
    std::vector<char *> rest;
    /** The values of the options that say where windows are shown; null where not given. */
    const char *display = nullptr;
    const char *platform = nullptr;
    const char *platformPluginPath = nullptr;
};

/**
 * Splits the vector. What follows the argument "--" is left alone, and so is an option that lacks
 * its value. Neither vector in the result has a closing null pointer.
 */
Split split(int argc, char **argv);
} // namespace ToolkitOptions
