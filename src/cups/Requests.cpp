#include "Requests.h"

#include "WireText.h"

namespace
{
constexpr char PrintersResource[] = "/printers/";
constexpr char ClassesResource[] = "/classes/";
constexpr char JobsResource[] = "/jobs/";
constexpr char AdminResource[] = "/admin/";
constexpr char RootResource[] = "/";

constexpr char PrinterUri[] = "printer-uri";
constexpr char RequestingUserName[] = "requesting-user-name";

constexpr int Operation = IPP_TAG_OPERATION;
} // namespace

namespace Requests
{
PrintFile::PrintFile(const char *printerName)
    : IPPRequest(IPP_OP_PRINT_JOB)
{
    m_resource = QString::fromLatin1(PrintersResource) + WireText::fromWire(printerName);
    addName(RequestingUserName, cupsUser(), Operation);
}

CancelJob::CancelJob(const char *jobUri)
    : IPPRequest(IPP_OP_CANCEL_JOB)
{
    m_resource = QString::fromLatin1(JobsResource);
    addUri("job-uri", jobUri, Operation);
    addName(RequestingUserName, cupsUser(), Operation);
}

GetJobs::GetJobs()
    : IPPRequest(IPP_OP_GET_JOBS)
{
    m_resource = QString::fromLatin1(RootResource);
    const QByteArray uri = QByteArray("ipp://") + cupsServer() + "/jobs/";
    addUri(PrinterUri, uri.constData(), Operation);
}

GetPrinterAttributes::GetPrinterAttributes()
    : IPPRequest(IPP_OP_GET_PRINTER_ATTRIBUTES)
{
    m_resource = QString::fromLatin1(PrintersResource);
}

GetDefaultPrinter::GetDefaultPrinter()
    : IPPRequest(IPP_OP_CUPS_GET_DEFAULT)
{
    m_resource = QString::fromLatin1(PrintersResource);
}

GetPrinters::GetPrinters(int type, int mask)
    : IPPRequest(IPP_OP_CUPS_GET_PRINTERS)
{
    m_resource = QString::fromLatin1(PrintersResource);
    if (type == 0 && mask == 0)
        return;
    addInteger("printer-type", type, IPP_TAG_ENUM, Operation);
    addInteger("printer-type-mask", mask, IPP_TAG_ENUM, Operation);
}

AddPrinter::AddPrinter()
    : IPPRequest(IPP_OP_CUPS_ADD_MODIFY_PRINTER)
{
    m_resource = QString::fromLatin1(AdminResource);
}

DeletePrinter::DeletePrinter(const char *printerUri)
    : IPPRequest(IPP_OP_CUPS_DELETE_PRINTER)
{
    m_resource = QString::fromLatin1(AdminResource);
    addUri(PrinterUri, printerUri, Operation);
}

GetClasses::GetClasses()
    : IPPRequest(IPP_OP_CUPS_GET_CLASSES)
{
    m_resource = QString::fromLatin1(ClassesResource);
}

AddClass::AddClass()
    : IPPRequest(IPP_OP_CUPS_ADD_MODIFY_CLASS)
{
    m_resource = QString::fromLatin1(AdminResource);
}

DeleteClass::DeleteClass(const char *classUri)
    : IPPRequest(IPP_OP_CUPS_DELETE_CLASS)
{
    m_resource = QString::fromLatin1(AdminResource);
    addUri(PrinterUri, classUri, Operation);
}

SetDefaultPrinter::SetDefaultPrinter(const char *printerUri)
    : IPPRequest(IPP_OP_CUPS_SET_DEFAULT)
{
    m_resource = QString::fromLatin1(AdminResource);
    addUri(PrinterUri, printerUri, Operation);
}

GetPPDs::GetPPDs(const char *make)
    : IPPRequest(IPP_OP_CUPS_GET_PPDS)
{
    m_resource = QString::fromLatin1(RootResource);
    addUri(PrinterUri, "ipp://localhost/printers/", Operation);
    if (make)
        addText("ppd-make", make, Operation);
}
} // namespace Requests
