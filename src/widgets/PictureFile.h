#pragma once

#include <QImage>
#include <QPixmap>
#include <QString>

/**
 * Picture files that somebody else wrote. What is no picture of a reasonable size, or is made to
 * cost much time or memory, is as good as missing: the result is null, without a message.
 */
namespace PictureFile
{
/** No larger file is read, and no wider or higher picture is decoded. */
constexpr qsizetype MaxFileSize = 4 * 1024 * 1024;
constexpr int MaxSide = 1024;
/** JPEG pictures are drawn in several turns at most; real ones have about ten. */
constexpr qsizetype MaxJpegScans = 100;

/**
 * The picture in the bytes of a file of a format that the toolkit itself reads: PNG, JPEG, GIF,
 * BMP, XPM, XBM and PPM with its relatives.
 */
QImage decode(const QByteArray &content);
/**
 * The picture of a file, transparent around the device: where the picture has no transparency of
 * its own, its background is taken out.
 */
QPixmap load(const QString &path);
} // namespace PictureFile
