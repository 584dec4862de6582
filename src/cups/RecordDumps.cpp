#include "RecordDumps.h"

namespace
{
QByteArray joined(const QStringList &values)
{
    return values.join(u'|').toLocal8Bit();
}
} // namespace

QString dumpDriver(const DriverInfo &driver)
{
    return QString::asprintf("Manufacturer=<%s> Model=<%s> DriverFile=<%s> Language=<%s>",
                             qPrintable(driver.make), qPrintable(driver.model),
                             qPrintable(driver.driverFile), qPrintable(driver.language));
}

QString dumpPrinter(const PrinterInfo &printer)
{
    return QString::asprintf("\n\tName/Description/Location: <%s/%s/%s>"
                             "\n\tInfo/ModelInfo: <%s/%s>"
                             "\n\tLocalURI: <%s>"
                             "\n\tUri: <%s>"
                             "\n\tURIs: <%s>"
                             "\n\tPrinterType: 0x%.8x",
                             qPrintable(printer.name), qPrintable(printer.description),
                             qPrintable(printer.location), qPrintable(printer.info),
                             qPrintable(printer.modelInfo), qPrintable(printer.localUri),
                             qPrintable(printer.uri), joined(printer.uris).constData(),
                             static_cast<unsigned>(printer.printerType));
}

QString dumpClass(const ClassInfo &cls)
{
    return QString::asprintf("%s\n\tprinters: <%s>", qPrintable(dumpPrinter(cls)),
                             joined(cls.memberNames).constData());
}
