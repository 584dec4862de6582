#pragma once

/**
 * The options of the `lpr` command, in the form of getopt_long: one truth for the entry, which
 * decides by them where a run goes, and for LPRArguments, which reads their values.
 */
namespace LprSyntax
{
constexpr char ShortOptions[] = "o:phn:#:P:C:J:T:U:";
/** The one long option; it takes no argument. */
constexpr char UiOption[] = "ui";
} // namespace LprSyntax
