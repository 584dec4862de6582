#include "CUPSManager.h"

#include "Destinations.h"
#include "InstallationSettings.h"
#include "Requests.h"
#include "ServerConnection.h"
#include "SystemPaths.h"
#include "WireText.h"

#include <QUrl>

#include <optional>
#include <utility>

using WireText::fromWire;
using WireText::toWire;

namespace
{
constexpr char PrinterUri[] = "printer-uri";
constexpr char AdminResource[] = "/admin/";
constexpr int Operation = IPP_TAG_OPERATION;

/** Which record of a response is kept: one whose key is set. */
bool isComplete(const PrinterInfo &info)
{
    return !info.name.isEmpty();
}
bool isComplete(const DriverInfo &info)
{
    return !info.driverFile.isEmpty();
}
bool isComplete(const JobInfo &info)
{
    return info.jobId != 0;
}

/** The records of a response, which attributes without a name separate. */
template <typename Record> QList<Record> recordsOf(ipp_t *response)
{
    QList<Record> records;
    Record record;
    const auto finish = [&records, &record] {
        if (isComplete(record))
            records.append(record);
        record = Record();
    };
    for (ipp_attribute_t *attribute = ippFirstAttribute(response); attribute;
         attribute = ippNextAttribute(response)) {
        record.readAttribute(attribute);
        if (!ippGetName(attribute))
            finish();
    }
    finish();
    return records;
}

/** The records that the server answers with; nothing where it does not answer. */
template <typename Record>
std::optional<QList<Record>> answerTo(CUPSManager &manager, IPPRequest &request,
                                      const char *resource = nullptr)
{
    request.addRequestedAttributes(Record::attributeNames());
    if (!manager.executeListing(request, resource))
        return std::nullopt;
    return recordsOf<Record>(request.response());
}

std::optional<QList<ClassInfo>> allClasses(CUPSManager &manager)
{
    Requests::GetClasses request;
    return answerTo<ClassInfo>(manager, request);
}

std::optional<QList<PrinterInfo>> printersAt(CUPSManager &manager, const char *uri)
{
    Requests::GetPrinterAttributes request;
    request.addUri(PrinterUri, uri, Operation);
    return answerTo<PrinterInfo>(manager, request);
}

bool takeFirstPrinter(const QList<PrinterInfo> &records, CUPSPrinter &out)
{
    if (records.isEmpty())
        return false;
    out = CUPSPrinter(records.constFirst());
    return true;
}

/** What stands for the answer that did not come: a closed door says why. */
int statusWithoutAnswer()
{
    const ipp_status_t status = cupsLastError();
    switch (status) {
    case IPP_STATUS_ERROR_FORBIDDEN:
    case IPP_STATUS_ERROR_NOT_AUTHENTICATED:
    case IPP_STATUS_ERROR_NOT_AUTHORIZED:
        return status;
    case IPP_STATUS_ERROR_CUPS_AUTHENTICATION_CANCELED:
        return IPP_STATUS_ERROR_NOT_AUTHENTICATED;
    default:
        return CUPSManager::NoAnswer;
    }
}

/** The status of what the library itself has just asked on the connection. */
int statusOfLibrary(http_t *http)
{
    return httpGetStatus(http) == HTTP_STATUS_OK ? static_cast<int>(cupsLastError())
                                                 : statusWithoutAnswer();
}

bool passes(const CUPSPrinter &printer, const char *filter)
{
    if (!filter)
        return true;
    const QString text = fromWire(filter);
    return printer.driver.make.contains(text, Qt::CaseInsensitive) ||
           printer.driver.model.contains(text, Qt::CaseInsensitive);
}

/** The URI under which the server is told of `name`, a printer or class as `folder` says. */
QByteArray uriOf(const char *folder, const QString &name)
{
    // The server refuses other characters unless they are encoded.
    constexpr char AllowedInPath[] = "!$&'()*+,;=:@";
    const QByteArray path =
        QByteArray("/") + folder + '/' + QUrl::toPercentEncoding(name, AllowedInPath);
    if (fileExists(SystemPaths::serverSocket()))
        return "ipp://localhost" + path;
    return QByteArray("ipp://") + cupsServer() + ':' + QByteArray::number(ippPort()) + path;
}

bool sendToPrinter(CUPSManager &manager, ipp_op_t operation, const char *uri)
{
    IPPRequest request(operation);
    request.addUri(PrinterUri, uri, Operation);
    return manager.execute(request, AdminResource);
}

bool sendPrinter(CUPSManager &manager, const QByteArray &uri, const PrinterInfo &info)
{
    Requests::AddPrinter request;
    request.addUri(PrinterUri, uri.constData(), Operation);
    request.addUri("device-uri", toWire(info.localUri).constData(), Operation);
    request.addInteger("printer-state", info.state, IPP_TAG_ENUM, Operation);
    request.addBoolean("printer-is-accepting-jobs", info.acceptingJobs, Operation);
    request.addText("printer-info", toWire(info.description).constData(), Operation);
    request.addText("printer-location", toWire(info.location).constData(), Operation);
    return manager.execute(request);
}

bool setPpdName(CUPSManager &manager, const QByteArray &uri, const QByteArray &ppdName)
{
    Requests::AddPrinter request;
    request.addUri(PrinterUri, uri.constData(), Operation);
    request.addName("ppd-name", ppdName.constData(), Operation);
    return manager.execute(request);
}

/** The class at `uri`; empty when there is none, nothing when the server does not tell. */
std::optional<QString> classNameOf(CUPSManager &manager, const char *uri)
{
    const auto classes = allClasses(manager);
    if (!classes)
        return std::nullopt;
    for (const ClassInfo &cls : *classes) {
        if (cls.uri == fromWire(uri))
            return cls.name;
    }
    return QString();
}

/** The same for a printer or class. */
std::optional<QString> nameOf(CUPSManager &manager, const char *uri)
{
    const auto printers = printersAt(manager, uri);
    if (!printers)
        return std::nullopt;
    return printers->isEmpty() ? classNameOf(manager, uri) : printers->constFirst().name;
}

void removeFromSavedDestinations(const QString &name)
{
    Cups::DestinationArray saved = Destinations::saved();
    if (!saved.find(toWire(name).constData(), nullptr))
        return;
    saved.countRef() =
        cupsRemoveDest(toWire(name).constData(), nullptr, saved.count(), saved.dataRef());
    if (!Destinations::writeSaved(std::move(saved)))
        qWarning("CUPSManager: the saved options of <%s> were not removed", qUtf8Printable(name));
}

void removeAt(QStringList &list, qsizetype index)
{
    if (index < list.size())
        list.removeAt(index);
}

/** Takes the printer out of the two parallel member lists. False when it is in none of them. */
bool removeMember(ClassInfo &cls, const QString &name, const QString &uri)
{
    const qsizetype named = cls.memberNames.indexOf(name);
    const qsizetype index = named >= 0 ? named : cls.memberUris.indexOf(uri);
    if (index < 0)
        return false;
    removeAt(cls.memberNames, index);
    removeAt(cls.memberUris, index);
    return true;
}

bool removeFromClasses(CUPSManager &manager, const QString &name, const QString &uri)
{
    auto classes = allClasses(manager);
    if (!classes)
        return false;
    for (ClassInfo &cls : *classes) {
        if (removeMember(cls, name, uri) && !manager.modifyClass(cls))
            return false;
    }
    return true;
}

/** Adds the jobs of all users; returns how the server answered. */
int addLibraryJobs(QMap<int, JobInfo> &out, http_t *http, const char *destination, int which)
{
    constexpr int OfAllUsers = 0;
    cups_job_t *jobs = nullptr;
    const int count = cupsGetJobs2(http, &jobs, destination, OfAllUsers, which);
    for (int i = 0; i < count; ++i)
        out.insert(jobs[i].id, JobInfo(jobs[i]));
    const int status = statusOfLibrary(http);
    cupsFreeJobs(count, jobs);
    return status;
}

int growth(qsizetype before, qsizetype after)
{
    return static_cast<int>(after - before);
}

/** Sends the request and adds the jobs of its response. False without response. */
bool addJobs(CUPSManager &manager, IPPRequest &request, const char *resource,
             QMap<int, JobInfo> &out)
{
    const auto jobs = answerTo<JobInfo>(manager, request, resource);
    if (!jobs)
        return false;
    for (const JobInfo &job : *jobs)
        out.insert(job.jobId, job);
    return true;
}

/** The printers of the answer; nothing where there is no answer, or nothing in it. */
std::optional<QList<PrinterInfo>> listedPrinters(CUPSManager &manager,
                                                 Requests::GetPrinters &request)
{
    const auto records = answerTo<PrinterInfo>(manager, request);
    return records && ippFirstAttribute(request.response()) ? records : std::nullopt;
}

/** Adds the printers that pass, and marks the default; returns how `out` grew. */
int addPrinters(CUPSManager &manager, const std::optional<QList<PrinterInfo>> &records,
                QMap<QString, CUPSPrinter> &out, const char *filter)
{
    if (!records)
        return 0;
    CUPSPrinter defaultPrinter;
    manager.getDefaultPrinter(defaultPrinter);
    const qsizetype before = out.size();
    for (const PrinterInfo &record : *records) {
        CUPSPrinter printer(record);
        if (!passes(printer, filter))
            continue;
        printer.attributes.isDefault = record.name == defaultPrinter.attributes.name;
        out.insert(record.name, printer);
    }
    return growth(before, out.size());
}
} // namespace

const QString CUPSManager::m_DriversDir = QStringLiteral("/usr/share/cups/model/");
CUPSManager CUPSManager::m_CUPSManagerInstance;
CUPSManager *const _CUPS = &CUPSManager::m_CUPSManagerInstance;

CUPSManager::~CUPSManager() = default;

bool CUPSManager::execute(IPPRequest &request, const char *resource)
{
    const bool isSent = request.send(resource);
    m_lastStatus = request.response() ? ippGetStatusCode(request.response()) : 0;
    return isSent;
}

bool CUPSManager::executeListing(IPPRequest &request, const char *resource)
{
    const bool isAnswered = execute(request, resource);
    const bool wasSent = !request.request();
    if (isAnswered)
        m_listingStatus = m_lastStatus;
    else
        m_listingStatus = wasSent ? statusWithoutAnswer() : NoAnswer;
    return isAnswered;
}

int CUPSManager::getPrinters(QMap<QString, CUPSPrinter> &out, int type, int mask,
                             const char *filter)
{
    const ServerConnection::Patience patience;
    // Its connection is closed before the next one is opened: a server may serve one at a time.
    const auto listed = [&] {
        Requests::GetPrinters request(type, mask);
        return listedPrinters(*this, request);
    };
    return addPrinters(*this, listed(), out, filter);
}

bool CUPSManager::findPrinter(const QString &name, CUPSPrinter &out, bool vendorOnly)
{
    const ServerConnection::Patience patience;
    const auto listed = [&] {
        // The list begins at the printer and ends there: all of a thousand printers with their
        // attributes keep the user waiting.
        Requests::GetPrinters request(0, 0);
        request.addName("first-printer-name", toWire(name).constData(), IPP_TAG_OPERATION);
        request.addInteger("limit", 1, IPP_TAG_INTEGER, IPP_TAG_OPERATION);
        return listedPrinters(*this, request);
    };
    QMap<QString, CUPSPrinter> printers;
    addPrinters(*this, listed(), printers,
                vendorOnly ? InstallationSettings::instance().vendorUpper : nullptr);
    const auto found = printers.constFind(name);
    if (found == printers.constEnd())
        return false;
    out = *found;
    return true;
}

int CUPSManager::getClasses(QMap<QString, ClassInfo> &out)
{
    const auto classes = allClasses(*this);
    if (!classes)
        return 0;
    const qsizetype before = out.size();
    for (const ClassInfo &cls : *classes)
        out.insert(cls.name, cls);
    return growth(before, out.size());
}

bool CUPSManager::findClass(const QString &name, ClassInfo &out)
{
    QMap<QString, ClassInfo> classes;
    getClasses(classes);
    const auto found = classes.constFind(name);
    if (found == classes.constEnd())
        return false;
    out = *found;
    return true;
}

bool CUPSManager::getDefaultPrinter(CUPSPrinter &out)
{
    Requests::GetDefaultPrinter request;
    request.addRequestedAttributes(PrinterInfo::attributeNames());
    return execute(request) && takeFirstPrinter(recordsOf<PrinterInfo>(request.response()), out);
}

bool CUPSManager::getPrinterAttributes(const char *uri, CUPSPrinter &out)
{
    return takeFirstPrinter(printersAt(*this, uri).value_or(QList<PrinterInfo>()), out);
}

QString CUPSManager::defaultPrinterName()
{
    const ServerConnection::Ptr http = ServerConnection::open();
    // Without a connection the library would open one of its own, and wait for it without limit.
    const QString name =
        http ? fromWire(cupsGetDefault2(http.get())) : fromWire(Destinations::environmentDefault());
    if (!name.isEmpty())
        m_listingStatus = IPP_STATUS_OK;
    else
        m_listingStatus = http ? statusOfLibrary(http.get()) : NoAnswer;
    return name;
}

bool CUPSManager::startPrinter(const char *uri)
{
    const ServerConnection::Patience patience;
    return sendToPrinter(*this, IPP_OP_CUPS_ACCEPT_JOBS, uri) &&
           sendToPrinter(*this, IPP_OP_RESUME_PRINTER, uri);
}

bool CUPSManager::stopPrinter(const char *uri)
{
    const ServerConnection::Patience patience;
    return sendToPrinter(*this, IPP_OP_CUPS_REJECT_JOBS, uri) &&
           sendToPrinter(*this, IPP_OP_PAUSE_PRINTER, uri);
}

bool CUPSManager::setDefaultPrinter(const QString &uri)
{
    Requests::SetDefaultPrinter request(toWire(uri).constData());
    return execute(request);
}

bool CUPSManager::cancelJob(const char *destination, int jobId)
{
    constexpr int KeepHistory = 0;
    const ServerConnection::Ptr http = ServerConnection::open();
    return http && cupsCancelJob2(http.get(), destination, jobId, KeepHistory) <
                       IPP_STATUS_REDIRECTION_OTHER_SITE;
}

bool CUPSManager::cancelJob(const char *jobUri)
{
    Requests::CancelJob request(jobUri);
    return execute(request);
}

bool CUPSManager::printFile(const CUPSPrinter &printer, const PrintJob &job)
{
    const PrinterInfo &info = printer.attributes;
    Requests::PrintFile request(toWire(info.name).constData());
    request.addUri(PrinterUri, toWire(info.uris.value(0)).constData(), Operation);
    request.addName("job-name", toWire(job.title).constData(), Operation);
    request.addMimeType("document-format", toWire(job.format).constData(), Operation);
    request.setFileName(job.file);
    return execute(request);
}

bool CUPSManager::setPrinterPPD(const char *uri, const QString &ppdFile)
{
    Requests::AddPrinter request;
    request.addUri(PrinterUri, uri, Operation);
    request.setFileName(ppdFile);
    return execute(request);
}

bool CUPSManager::modifyPrinter(const CUPSPrinter &printer)
{
    const ServerConnection::Patience patience;
    const QByteArray uri = uriOf("printers", printer.attributes.name);
    if (!sendPrinter(*this, uri, printer.attributes))
        return false;
    if (printer.ppdName.isEmpty())
        return true;
    return setPpdName(*this, uri, QByteArray()) && setPpdName(*this, uri, toWire(printer.ppdName));
}

bool CUPSManager::modifyClass(const ClassInfo &cls)
{
    Requests::AddClass request;
    request.addUri(PrinterUri, uriOf("classes", cls.name).constData(), Operation);
    request.addText("printer-location", toWire(cls.location).constData(), Operation);
    request.addText("printer-info", toWire(cls.description).constData(), Operation);
    request.addInteger("printer-state", cls.state, IPP_TAG_ENUM, Operation);
    request.addBoolean("printer-is-accepting-jobs", cls.acceptingJobs, Operation);
    request.addMemberUris(cls.memberUris);
    return execute(request);
}

bool CUPSManager::deletePrinter(const char *uri)
{
    const ServerConnection::Patience patience;
    if (!stopPrinter(uri))
        return false;
    const std::optional<QString> name = nameOf(*this, uri);
    if (!name)
        return false;
    removeFromSavedDestinations(*name);
    if (!removeFromClasses(*this, *name, fromWire(uri)))
        return false;
    Requests::DeletePrinter request(uri);
    return execute(request);
}

bool CUPSManager::deleteClass(const char *uri)
{
    const ServerConnection::Patience patience;
    const std::optional<QString> name = nameOf(*this, uri);
    if (!name)
        return false;
    removeFromSavedDestinations(*name);
    Requests::DeleteClass request(uri);
    return execute(request);
}

int CUPSManager::getJobs(QMap<int, JobInfo> &out, const char *destination, bool activeOnly)
{
    m_listingStatus = NoAnswer;
    const ServerConnection::Ptr http = ServerConnection::open();
    if (!http)
        return 0;
    const qsizetype before = out.size();
    m_listingStatus = addLibraryJobs(out, http.get(), destination, CUPS_WHICHJOBS_ACTIVE);
    const bool isAnswered =
        m_listingStatus != NoAnswer && m_listingStatus != IPP_STATUS_ERROR_NOT_AUTHENTICATED;
    if (activeOnly || !isAnswered)
        return growth(before, out.size());
    const int status = addLibraryJobs(out, http.get(), destination, CUPS_WHICHJOBS_COMPLETED);
    if (m_listingStatus == IPP_STATUS_OK)
        m_listingStatus = status;
    return growth(before, out.size());
}

int CUPSManager::getJobsWithUris(QMap<int, JobInfo> &out)
{
    const ServerConnection::Patience patience;
    const qsizetype before = out.size();
    const auto addFromJobs = [&] {
        Requests::GetJobs request;
        return addJobs(*this, request, nullptr, out);
    };
    // The scheduler of today knows no destination /jobs/, it lists all jobs under its root.
    if (addFromJobs() && m_lastStatus == IPP_STATUS_ERROR_NOT_FOUND) {
        IPPRequest rootRequest(IPP_OP_GET_JOBS);
        rootRequest.addUri(PrinterUri, "ipp://localhost/", Operation);
        addJobs(*this, rootRequest, "/", out);
    }
    return growth(before, out.size());
}

QList<DriverInfo> CUPSManager::getPPDs(const char *make)
{
    Requests::GetPPDs request(make);
    return executeListing(request) ? recordsOf<DriverInfo>(request.response())
                                   : QList<DriverInfo>();
}

QString CUPSManager::stateText(int state, bool accepting)
{
    QString text;
    switch (state) {
    case IPP_PSTATE_IDLE:
        //: State of a printer: it has nothing to print.
        text = tr("idle");
        break;
    case IPP_PSTATE_PROCESSING:
        //: State of a printer: it prints.
        text = tr("processing");
        break;
    case IPP_PSTATE_STOPPED:
        //: State of a printer: it was stopped and prints nothing.
        text = tr("stopped");
        break;
    default:
        //: State of a printer.
        text = tr("unknown");
    }
    //: Follows the state of a printer: "idle, accepting jobs".
    QString jobs = tr("accepting jobs");
    if (!accepting) {
        //: Follows the state of a printer: "idle, rejecting jobs".
        jobs = tr("rejecting jobs");
    }
    //: State of a printer, and whether it accepts jobs: "idle, accepting jobs".
    return tr("%1, %2").arg(text, jobs);
}
