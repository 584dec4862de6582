#include "Route.h"

#include "LPRArguments.h"

namespace
{
/** The option takes no argument for getopt, so the word after it is the first operand. */
bool switchesWindowOff(const LPRArguments &arguments)
{
    const QString ui = QStringLiteral("ui");
    const QString off = QStringLiteral("False");
    return arguments.value(ui, QString()) == off ||
           (arguments.contains(ui) && arguments.operands.value(0) == off);
}
} // namespace

bool mustHandOver(const LPRArguments &arguments, bool companionPrints)
{
    return arguments.contains(CommandLineOptions::UnknownOption) || switchesWindowOff(arguments) ||
           companionPrints;
}
