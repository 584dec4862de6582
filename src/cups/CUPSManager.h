#pragma once

#include "CUPSPrinter.h"
#include "ClassInfo.h"
#include "IPPRequest.h"
#include "JobInfo.h"

#include <QCoreApplication>
#include <QMap>
#include <QString>

/** A document to print: what `printFile` sends. */
struct PrintJob {
    QString title;
    /** A MIME type. */
    QString format;
    /** Path of the file. */
    QString file;
};

/**
 * The print server: runs requests and turns their responses into records.
 *
 * One instance for the process, built before main, reached through `_CUPS`. Nothing is cached;
 * every call asks the server. Failures give false or 0 and leave the output as it was; the server's
 * status is in lastStatus().
 */
class CUPSManager
{
    Q_DECLARE_TR_FUNCTIONS(CUPSManager)

public:
    constexpr CUPSManager() = default;
    virtual ~CUPSManager();

    /** Sends `request`; keeps the response's IPP status as lastStatus(). */
    bool execute(IPPRequest &request, const char *resource = nullptr);
    /** The IPP status code of the last response, 0 when the last request got none. */
    int lastStatus() const { return m_lastStatus; }

    /** In place of an IPP status: there was no answer. */
    static constexpr int NoAnswer = -1;
    /**
     * How the server answered the request that made the last list or record: getPrinters,
     * findPrinter, getClasses, findClass, getPrinterAttributes, getJobs, getJobsWithUris, getPPDs,
     * defaultPrinterName. An IPP status, or NoAnswer; unlike lastStatus() it tells the two apart,
     * does not change with what is asked afterwards, and covers the library's own requests.
     */
    int listingStatus() const { return m_listingStatus; }
    /** As execute, for the request that makes a list: keeps listingStatus(), too. */
    bool executeListing(IPPRequest &request, const char *resource = nullptr);

    /**
     * Adds the printers to `out`, by name, and returns by how many entries it grew. `filter` may be
     * null; otherwise a record passes whose make or model contains it, whatever the case.
     */
    int getPrinters(QMap<QString, CUPSPrinter> &out, int type, int mask, const char *filter);
    /** Looks a printer (or, as the server lists both, a class) up by its exact name. */
    bool findPrinter(const QString &name, CUPSPrinter &out, bool vendorOnly);
    int getClasses(QMap<QString, ClassInfo> &out);
    bool findClass(const QString &name, ClassInfo &out);
    bool getDefaultPrinter(CUPSPrinter &out);
    bool getPrinterAttributes(const char *uri, CUPSPrinter &out);
    /** The library's default destination; empty when there is none. */
    QString defaultPrinterName();

    bool startPrinter(const char *uri);
    bool stopPrinter(const char *uri);
    bool setDefaultPrinter(const QString &uri);
    bool cancelJob(const char *destination, int jobId);
    bool cancelJob(const char *jobUri);
    bool printFile(const CUPSPrinter &printer, const PrintJob &job);
    bool setPrinterPPD(const char *uri, const QString &ppdFile);
    bool modifyPrinter(const CUPSPrinter &printer);
    bool modifyClass(const ClassInfo &cls);
    bool deletePrinter(const char *uri);
    bool deleteClass(const char *uri);

    /**
     * Adds the jobs of `destination` (null: of all), by id, and returns by how many entries `out`
     * grew: the active jobs and, unless `activeOnly`, the completed ones.
     */
    int getJobs(QMap<int, JobInfo> &out, const char *destination, bool activeOnly);
    /** The same for the server's active jobs of all destinations, with their URIs. */
    int getJobsWithUris(QMap<int, JobInfo> &out);
    /** The drivers that the server knows, those of `make` alone unless it is null. */
    QList<DriverInfo> getPPDs(const char *make);

    /** "idle, accepting jobs" and the like, for IPP printer-state `state`. Translated. */
    static QString stateText(int state, bool accepting);

    /** The server's driver directory. */
    static const QString m_DriversDir;
    static CUPSManager m_CUPSManagerInstance;

private:
    int m_lastStatus = 0;
    int m_listingStatus = 0;
};

/** The process's one CUPSManager. */
extern CUPSManager *const _CUPS;
