#pragma once

#include "CupsHandles.h"

#include <QList>
#include <QString>
#include <QStringList>

/** What the server says of a printer. Each field names the attribute that fills it. */
struct PrinterInfo {
    QString name;                     // printer-name
    QString description;              // printer-info
    QString make;                     // not filled by the reader
    int state = 3;                    // printer-state: 3 idle, 4 processing, 5 stopped
    bool isDefault = false;           // set by CUPSManager::getPrinters
    QString location;                 // printer-location
    QString info;                     // not filled by the reader
    QString modelInfo;                // printer-make-and-model
    QString localUri;                 // device-uri
    QString uri;                      // printer-uri, the first of printer-uri-supported
    QStringList uris;                 // printer-uri-supported
    bool colorSupported = false;      // color-supported
    QStringList mediaSupported;       // media-supported
    QString mediaDefault;             // media-default
    int printerType = 0;              // printer-type, bits of cups_ptype_t
    bool acceptingJobs = false;       // printer-is-accepting-jobs
    int copiesDefault = 0;            // copies-default
    int copiesMin = 0;                // copies-supported, lower bound
    int copiesMax = 0;                // copies-supported, upper bound
    bool pageRangesSupported = false; // page-ranges-supported
    int orientationDefault = 3;       // orientation-requested-default: 3 portrait
    QString stateMessage;             // printer-state-message
    QStringList reserved;             // not filled by the reader
    QList<int> orientationsSupported; // orientation-requested-supported
    QStringList jobSheetsSupported;   // job-sheets-supported
    QString jobSheetsStart;           // job-sheets-default, first value
    QString jobSheetsEnd;             // job-sheets-default, second value

    /** Reads one attribute of a response: logs it and takes what concerns this record. */
    void readAttribute(ipp_attribute_t *attribute);
    /** The attributes that readAttribute takes. */
    static QList<const char *> attributeNames();
};
