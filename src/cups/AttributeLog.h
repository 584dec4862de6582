#pragma once

#include "CupsHandles.h"

#include <cstdio>

/**
 * The logs of the attributes that the record readers were handed, one for each kind of record.
 *
 * All four are opened, and so truncated, before main. A log is null when it cannot be opened.
 */
namespace AttributeLog
{
FILE *&printers();
FILE *&drivers();
FILE *&jobs();
FILE *&classes();
} // namespace AttributeLog

/** Writes `attribute` to `log`. Does nothing when `log` is null. */
void logAttribute(FILE *&log, ipp_attribute_t *attribute);
