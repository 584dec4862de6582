#pragma once

class LPRArguments;

/**
 * Whether a run goes to the system client as it is, without a dialog, whatever display there is:
 * the command line holds an option that the program does not know, or switches the window off
 * (`--ui False`), or a companion application prints (`companionPrints`: PRINT_FROM_ORRN is set).
 */
bool mustHandOver(const LPRArguments &arguments, bool companionPrints);
