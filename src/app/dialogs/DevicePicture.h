#pragma once

#include <QPixmap>
#include <QString>

/**
 * The picture that the print dialog shows of a device: the big one of the catalogue for its make and
 * model, or a generic one. A picture that would blow up the window is made smaller.
 */
QPixmap devicePicture(const QString &makeAndModel);
