#pragma once

#include "IPPRequest.h"

/** One class for each kind of IPP request: the operation, the resource, the fixed attributes. */
namespace Requests
{
class PrintFile : public IPPRequest
{
public:
    explicit PrintFile(const char *printerName);
};

class CancelJob : public IPPRequest
{
public:
    explicit CancelJob(const char *jobUri);
};

class GetJobs : public IPPRequest
{
public:
    GetJobs();
};

class GetPrinterAttributes : public IPPRequest
{
public:
    GetPrinterAttributes();
};

class GetDefaultPrinter : public IPPRequest
{
public:
    GetDefaultPrinter();
};

class GetPrinters : public IPPRequest
{
public:
    /** `type` and `mask` are bits of cups_ptype_t; 0 and 0 list everything. */
    GetPrinters(int type, int mask);
};

class AddPrinter : public IPPRequest
{
public:
    AddPrinter();
};

class DeletePrinter : public IPPRequest
{
public:
    explicit DeletePrinter(const char *printerUri);
};

class GetClasses : public IPPRequest
{
public:
    GetClasses();
};

class AddClass : public IPPRequest
{
public:
    AddClass();
};

class DeleteClass : public IPPRequest
{
public:
    explicit DeleteClass(const char *classUri);
};

class SetDefaultPrinter : public IPPRequest
{
public:
    explicit SetDefaultPrinter(const char *printerUri);
};

class GetPPDs : public IPPRequest
{
public:
    /** `make` may be null: the drivers of all makes. */
    explicit GetPPDs(const char *make);
};
} // namespace Requests
