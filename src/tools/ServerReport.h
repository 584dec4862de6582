#pragma once

#include "CUPSManager.h"
#include "ReportOptions.h"

/** What came of a report. */
struct Report {
    QString text;
    /** What the server said when it refused, or that it did not answer; empty: it answered. */
    QString error;
};

/** A job in one line, without its end. */
QString dumpJob(const JobInfo &job);

/** Asks the server for what `options` name. The text is empty when there is nothing of it. */
Report reportOn(CUPSManager &server, const ReportOptions &options);
