#pragma once

#include "CupsHandles.h"

#include <QString>
#include <QStringList>

#include <cstdio>
#include <vector>

/**
 * The marked state of a PPD as text. Reads the PPD and changes nothing; numbers have a decimal
 * point in every locale.
 */
namespace PpdMarks
{
/** The options in the PPD's order of groups, in each group its subgroups' options first. */
std::vector<ppd_option_t *> options(const ppd_file_t *ppd);

/**
 * The current value of a custom parameter. For a parameter of an unknown type a line is written to
 * `log` (which may be null) and the text is empty.
 */
QString parameterText(const ppd_cparam_t &parameter, FILE *log);

/**
 * The texts of the marked choices of `option`, in choice order: choice keywords, and for a custom
 * choice `Custom.WIDTHxHEIGHTpt`, `Custom.VALUE` or `{NAME=VALUE,NAME=VALUE}`.
 */
QStringList choiceTexts(ppd_file_t *ppd, const ppd_option_t &option, FILE *log);

/**
 * A list of values in the form of choiceTexts() as the library reads it when it is marked: the
 * library separates by blanks. Any other text comes back as it is.
 */
QString markableList(const ppd_coption_t &option, const QString &list);

/**
 * `KEYWORD=CHOICE` for each option with a mark; empty for a null PPD. Of subgroups, those of the
 * PPD's own groups are read. A pick-many option's value is the first marked choice's keyword and
 * the display text of every marked choice from its fourth character on, without separators.
 */
QStringList list(const ppd_file_t *ppd);
} // namespace PpdMarks
