#pragma once

#include <QByteArray>
#include <QString>

/** Files that somebody else wrote. */
namespace BoundedFile
{
/**
 * What a regular file of at most `limit` bytes holds. Null for everything else: a file that is
 * missing, unreadable or larger, a folder, a device, a pipe (which does not keep the caller
 * waiting).
 */
QByteArray read(const QString &path, qsizetype limit);
} // namespace BoundedFile
