#pragma once

#include "CupsHandles.h"

#include <QList>
#include <QString>

/** A print job. Each field names the attribute that fills it. */
struct JobInfo {
    int jobId = 0;          // job-id
    QString name;           // job-name
    QString printer;        // job-printer-uri; the destination's name when read from the library
    QString user;           // job-originating-user-name
    QString uri;            // job-uri; empty when read from the library
    int kOctets = 0;        // job-k-octets
    int timeAtCreation = 0; // time-at-creation, seconds since 1970
    int state = 0;          // job-state, a value of ipp_jstate_t

    JobInfo() = default;
    /** The job as an entry of the library's list has it. */
    explicit JobInfo(const cups_job_t &job);

    /** Reads one attribute of a response: logs it and takes what concerns this record. */
    void readAttribute(ipp_attribute_t *attribute);
    /** The attributes that readAttribute takes. */
    static QList<const char *> attributeNames();
};
