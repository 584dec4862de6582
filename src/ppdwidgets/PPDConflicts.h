#pragma once

#include "CupsHandles.h"

#include <QString>
#include <QStringList>

/**
 * The warning of the options that `ppdConflicts` has found in conflict, one a line with their
 * marked choices; empty if there are none.
 */
QString conflictMessage(const ppd_file_t *ppd);

/** `KEYWORD=CHOICE` for each option with a mark, see PpdMarks::list. Empty for a null PPD. */
QStringList markedOptionList(const ppd_file_t *ppd);
