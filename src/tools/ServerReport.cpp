#include "ServerReport.h"

#include "RecordDumps.h"
#include "Requests.h"

#include <QDateTime>
#include <QUrl>

#include <array>

namespace
{
const char *kindOf(const PrinterInfo &info)
{
    return info.printerType & CUPS_PRINTER_CLASS ? "Class" : "Printer";
}

QString titled(const PrinterInfo &info, const QString &dump)
{
    QString title = QStringLiteral("%1 %2: %3")
                        .arg(QLatin1String(kindOf(info)), info.name,
                             CUPSManager::stateText(info.state, info.acceptingJobs));
    if (info.isDefault)
        title += QStringLiteral(", default");
    return title + dump + u'\n';
}

QString defaultText(CUPSManager &server, const ReportOptions &options)
{
    const QString name = server.defaultPrinterName();
    if (name.isEmpty() || !options.matchesName(name))
        return {};
    return QStringLiteral("Default: %1\n").arg(name);
}

QString nameOfServerDefault(CUPSManager &server)
{
    CUPSPrinter printer;
    server.getDefaultPrinter(printer);
    return printer.attributes.name;
}

QString printerAtUri(CUPSManager &server, const ReportOptions &options)
{
    CUPSPrinter printer;
    PrinterInfo &info = printer.attributes;
    const bool isFound = server.getPrinterAttributes(options.uri.toUtf8().constData(), printer);
    if (!isFound || !options.matchesName(info.name))
        return {};
    info.isDefault = info.name == nameOfServerDefault(server);
    return titled(info, dumpPrinter(info));
}

QString printersText(CUPSManager &server, const ReportOptions &options)
{
    if (!options.uri.isEmpty())
        return printerAtUri(server, options);
    const QByteArray filter = options.model.value_or(QString()).toUtf8();
    QMap<QString, CUPSPrinter> printers;
    server.getPrinters(printers, options.type, options.mask,
                       options.model ? filter.constData() : nullptr);
    QString text;
    for (const CUPSPrinter &printer : std::as_const(printers)) {
        if (options.matchesName(printer.attributes.name))
            text += titled(printer.attributes, dumpPrinter(printer.attributes));
    }
    return text;
}

QString classesText(CUPSManager &server, const ReportOptions &options)
{
    QMap<QString, ClassInfo> classes;
    if (server.getClasses(classes) == 0)
        return {};
    const QString defaultName = nameOfServerDefault(server);
    QString text;
    for (ClassInfo &cls : classes) {
        cls.isDefault = cls.name == defaultName;
        if (options.matchesName(cls.name))
            text += titled(cls, dumpClass(cls));
    }
    return text;
}

/** The name, also where the record holds the URI. */
QString destinationOf(const JobInfo &job)
{
    return QUrl::fromPercentEncoding(job.printer.section(u'/', -1).toUtf8());
}

bool isWanted(const JobInfo &job, const ReportOptions &options)
{
    const bool isCompleted = job.state >= IPP_JSTATE_CANCELED;
    return options.matchesName(destinationOf(job)) &&
           (options.which != ReportOptions::Which::Completed || isCompleted);
}

QString jobsText(CUPSManager &server, const ReportOptions &options)
{
    QMap<int, JobInfo> jobs;
    if (options.hasJobUris)
        server.getJobsWithUris(jobs);
    else
        server.getJobs(jobs, nullptr, options.which == ReportOptions::Which::Active);
    QString text;
    for (const JobInfo &job : std::as_const(jobs)) {
        if (isWanted(job, options))
            text += dumpJob(job) + u'\n';
    }
    return text;
}

QString driversText(CUPSManager &server, const ReportOptions &options)
{
    const QByteArray make = options.make.value_or(QString()).toUtf8();
    QString text;
    const QList<DriverInfo> drivers = server.getPPDs(options.make ? make.constData() : nullptr);
    for (const DriverInfo &driver : drivers) {
        if (options.matchesName(driver.driverFile))
            text += dumpDriver(driver) + u'\n';
    }
    return text;
}

struct SectionText {
    ReportOptions::Section section;
    QString (*text)(CUPSManager &server, const ReportOptions &options);
};
constexpr std::array SectionTexts = {
    SectionText{ReportOptions::Default, defaultText},
    SectionText{ReportOptions::Printers, printersText},
    SectionText{ReportOptions::Classes, classesText},
    SectionText{ReportOptions::Jobs, jobsText},
    SectionText{ReportOptions::Drivers, driversText},
};

bool isAnswering(CUPSManager &server)
{
    Requests::GetDefaultPrinter request;
    return server.executeListing(request);
}

/** What was wrong with the last list; empty: nothing. "Not found" is an empty list. */
QString complaint(const CUPSManager &server)
{
    const int status = server.listingStatus();
    if (status == CUPSManager::NoAnswer)
        return QStringLiteral("the print server does not answer");
    if (status < IPP_STATUS_ERROR_BAD_REQUEST || status == IPP_STATUS_ERROR_NOT_FOUND)
        return {};
    return IPPRequest::statusText(status);
}
} // namespace

QString dumpJob(const JobInfo &job)
{
    const QDateTime created = QDateTime::fromSecsSinceEpoch(job.timeAtCreation, Qt::UTC);
    return QString::asprintf("Job=<%d> State=<%s> Name=<%s> Printer=<%s> User=<%s> Uri=<%s> "
                             "Size=<%dk> Created=<%s>",
                             job.jobId, ippEnumString("job-state", job.state), qPrintable(job.name),
                             qPrintable(job.printer), qPrintable(job.user), qPrintable(job.uri),
                             job.kOctets, qPrintable(created.toString(Qt::ISODate)));
}

Report reportOn(CUPSManager &server, const ReportOptions &options)
{
    Report report;
    if (!isAnswering(server)) {
        report.error = complaint(server);
        return report;
    }
    for (const SectionText &section : SectionTexts) {
        if (!options.sections.testFlag(section.section))
            continue;
        report.text += section.text(server, options);
        report.error = complaint(server);
        if (!report.error.isEmpty())
            return report;
    }
    return report;
}
