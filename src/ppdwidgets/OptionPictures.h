#pragma once

#include <QPixmap>
#include <QString>

/** Which pictures the rows of the driver option tree have. */
namespace OptionPictures
{
inline constexpr char ListPicture[] = "list.png";
inline constexpr char NumericPicture[] = "numeric.png";

/**
 * The file name of an option's picture by its keyword, in any case, with or without `Stp` in
 * front; `fallback` for a keyword that has no picture of its own.
 */
QString optionFile(const QString &keyword, const QString &fallback);
/** The file name of a boolean option's picture by the keyword of its choice. */
QString booleanFile(const QString &choice);
/** The file name of a group's picture by the group's text. */
QString groupFile(const QString &text);
/** Whether a group of this text holds what is installed in the device. */
bool isInstallGroup(const QString &text);

/** The pictures themselves; empty if there is none of that name. */
QPixmap option(const QString &fileName);
QPixmap group(const QString &fileName);
/** The picture of the tree's root. */
QPixmap root();
} // namespace OptionPictures
