#pragma once

#include <QIcon>
#include <QPixmap>
#include <QString>
#include <QWidget>

/** A picture of the dialog, as sharp as the screen of `widget`. Null where there is no such file.
 */
inline QPixmap picture(const QString &fileName, const QWidget *widget)
{
    const QString path =
        QStringLiteral(":/%1/%2").arg(QStringLiteral("printerpropertiesdialog/images"), fileName);
    const QPixmap plain(path);
    const qreal ratio = widget->devicePixelRatio();
    // The icon knows the picture of double size beside the plain one.
    return ratio > 1 ? QIcon(path).pixmap(plain.size(), ratio) : plain;
}

/** Shows that picture in `label`, which is a QLabel. */
template <typename Label> void showPicture(Label *label, const QString &fileName)
{
    label->setPixmap(picture(fileName, label));
}
