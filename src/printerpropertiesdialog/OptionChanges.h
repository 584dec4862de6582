#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

class PrinterOptions;

/** Tells a user what is different between two states of an option set. */
namespace OptionChanges
{
using Values = QMap<QString, QString>;

/** All options with their values, those of the driver included. */
Values values(const PrinterOptions &options);

/** A line "name = value" for each option of `after` that `before` lacks or has otherwise, and one
 * for each that `after` lacks. */
QStringList describe(const Values &before, const Values &after);
} // namespace OptionChanges
