#pragma once

#include "PrinterInfo.h"

/** What the server says of a printer class. */
struct ClassInfo : PrinterInfo {
    QStringList memberUris;  // member-uris
    QStringList memberNames; // member-names

    /** Reads one attribute of a response: logs it and takes what concerns this record. */
    void readAttribute(ipp_attribute_t *attribute);
    /** The attributes that readAttribute takes. */
    static QList<const char *> attributeNames();
};
