#include "DestinationState.h"

DestinationState::DestinationState(const PrinterInfo &printer)
    : found(true)
    , state(printer.state)
    , accepting(printer.acceptingJobs)
    , location(printer.location)
    , description(printer.description)
    , uri(printer.uri)
{
    // The server lists classes among the printers and gives them a model that is none.
    if (!(printer.printerType & CUPS_PRINTER_CLASS))
        makeAndModel = printer.modelInfo;
    // A server that does not say how many copies it makes leaves both bounds at 0.
    if (printer.copiesMax >= FewestCopies) {
        const bool isRange =
            printer.copiesMin >= FewestCopies && printer.copiesMin <= printer.copiesMax;
        copiesMin = isRange ? printer.copiesMin : FewestCopies;
        copiesMax = printer.copiesMax;
    }
}

DestinationState::DestinationState(const ClassInfo &printerClass)
    : DestinationState(static_cast<const PrinterInfo &>(printerClass))
{
    makeAndModel.clear();
}
