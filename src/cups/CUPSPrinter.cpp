#include "CUPSPrinter.h"

CUPSPrinter::CUPSPrinter(const PrinterInfo &info)
    : attributes(info)
{
    driver.make = info.make;
    driver.model = info.modelInfo;
}

CUPSPrinter::~CUPSPrinter() = default;
