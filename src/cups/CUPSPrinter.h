#pragma once

#include "DriverInfo.h"
#include "PrinterInfo.h"

/** A printer of the server with its driver. A plain value. */
class CUPSPrinter
{
public:
    CUPSPrinter() = default;
    explicit CUPSPrinter(const PrinterInfo &info);
    CUPSPrinter(const CUPSPrinter &) = default;
    CUPSPrinter &operator=(const CUPSPrinter &) = default;
    virtual ~CUPSPrinter();

    PrinterInfo attributes;
    DriverInfo driver;
    /** Sent as `ppd-name` by CUPSManager::modifyPrinter; empty: the driver stays as it is. */
    QString ppdName;
    QString reserved1;
    QString reserved2;
    QString reserved3;
};
