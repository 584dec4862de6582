#pragma once

#include "PageOrientation.h"

#include <QLatin1StringView>
#include <QString>
#include <QStringList>

#include <optional>

/** How the choices of the General tab stand in the job options. */
namespace PaperLayout
{
/** From the value of `orientation-requested` (0: none) and the presence of `landscape`. */
PageOrientation orientation(int requested, bool landscape);
/** The value of `orientation-requested` (RFC 8011, 5.2.10): 3 to 6. */
int orientationRequested(PageOrientation orientation);
QString orientationPicture(PageOrientation orientation);

/** The ids of the duplex buttons. */
enum Duplex { DuplexOff, DuplexLongEdge, DuplexShortEdge };

/** The button for a value of the driver's `Duplex`; nothing for a value that is not known. */
std::optional<Duplex> duplexOfDriver(const QString &value);
/** The button for a value of `sides`; off for any that is not two-sided. */
Duplex duplexOfSides(const QString &value);
/** The value of `sides` for a button id; one-sided for any that is not two-sided. */
QLatin1StringView sides(int id);
/** The picture for a button id; the one for off, too, for -1. */
QString duplexPicture(int id);

/** The ids of the buttons for the pages per side are these numbers. */
bool isNumberUp(int number);
QString numberUpPicture(int number);

/** The banner pages to choose from. */
QStringList banners();

/** A value of `job-sheets`. */
struct JobSheets {
    /** The page before the job, and after it; null where the value names none. */
    QString start;
    QString end;

    static JobSheets fromOption(const QString &value);
    QString toOption() const;
};
} // namespace PaperLayout
