#pragma once

#include "ClassInfo.h"

#include <QString>

/** What the print dialog shows of a destination, and needs of it. */
struct DestinationState {
    /** IPP printer-state. */
    static constexpr int Stopped = 5;
    static constexpr int FewestCopies = 1;
    static constexpr int MostCopies = 100;

    /** A destination that the server does not know. */
    DestinationState() = default;
    explicit DestinationState(const PrinterInfo &printer);
    explicit DestinationState(const ClassInfo &printerClass);

    /** Whether it is there and prints nothing until it is started. */
    bool needsStart() const { return found && (state == Stopped || !accepting); }

    bool found = false;
    int state = Stopped;
    bool accepting = false;
    int copiesMin = FewestCopies;
    int copiesMax = MostCopies;
    QString location;
    QString description;
    /** Empty for a class. */
    QString makeAndModel;
    QString uri;
};
