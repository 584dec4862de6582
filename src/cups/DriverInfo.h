#pragma once

#include "CupsHandles.h"

#include <QString>

/** A driver (a PPD file) that the server knows. */
struct DriverInfo {
    QString make;
    QString model;
    QString driverFile;
    QString language;

    /** Reads one attribute of a response: logs it and takes what concerns this record. */
    void readAttribute(ipp_attribute_t *attribute);
};
