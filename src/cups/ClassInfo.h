#pragma once

#include "PrinterInfo.h"

/** What the server says of a printer class. */
struct ClassInfo : PrinterInfo {
    QStringList memberUris;  // member-uris
    QStringList memberNames; // member-names

    void readAttribute(ipp_attribute_t *attribute);
};
