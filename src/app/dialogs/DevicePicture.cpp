#include "DevicePicture.h"

#include "PixmapManager.h"

namespace
{
constexpr QSize largest(256, 256);
} // namespace

QPixmap devicePicture(const QString &makeAndModel)
{
    QPixmap picture;
    _PIXMAN->printerPicture(picture, makeAndModel.toUtf8().constData(), PixmapManager::BigPicture);
    const bool fits = picture.width() <= largest.width() && picture.height() <= largest.height();
    return fits ? picture : picture.scaled(largest, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}
