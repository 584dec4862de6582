#pragma once

#include "ClassInfo.h"
#include "DriverInfo.h"
#include "PrinterInfo.h"

#include <QString>

/**
 * Records as text, for developers: what the server says of a driver, a printer, a class. Texts
 * stand as they are between `<` and `>`, lists have `|` between their values.
 */

/** One line, without its end. */
QString dumpDriver(const DriverInfo &driver);
/** Six lines, each with a line end and a tab in front of it. */
QString dumpPrinter(const PrinterInfo &printer);
/** The class as a printer, and a line with the names of its members. */
QString dumpClass(const ClassInfo &cls);
