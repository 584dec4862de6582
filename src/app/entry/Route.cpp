#include "Route.h"

#include "LprSyntax.h"

#include <array>
#include <getopt.h>

namespace
{
constexpr int UiFound = 256; // no character of a short option
constexpr std::array<option, 2> LongOptions = {
    option{LprSyntax::UiOption, no_argument, nullptr, UiFound}, option{nullptr, 0, nullptr, 0}};

/** The option takes no argument for getopt, so the word after it is the first operand. */
bool switchesWindowOff(const CommandLine &commandLine)
{
    return commandLine.hasUi && !commandLine.operands.empty() &&
           commandLine.operands.front() == "False";
}
} // namespace

CommandLine readCommandLine(std::vector<char *> argv)
{
    CommandLine result;
    const int argc = static_cast<int>(argv.size());
    argv.push_back(nullptr);
    optind = 0; // begins afresh
    int found = 0;
    while ((found = getopt_long(argc, argv.data(), LprSyntax::ShortOptions, LongOptions.data(),
                                nullptr)) != -1) {
        result.isUnknown = result.isUnknown || found == '?';
        result.hasUi = result.hasUi || found == UiFound;
        if (found == 'T')
            result.title = optarg;
    }
    result.operands.assign(argv.begin() + optind, argv.end() - 1);
    return result;
}

bool mustHandOver(const CommandLine &commandLine, bool companionPrints)
{
    return commandLine.isUnknown || switchesWindowOff(commandLine) || companionPrints;
}
