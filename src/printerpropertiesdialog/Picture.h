#pragma once

#include <QPixmap>
#include <QString>

/** A picture of the dialog, as sharp as the screen. Null where there is no such picture. */
inline QPixmap picture(const QString &fileName)
{
    return QPixmap(
        QStringLiteral(":/%1/%2").arg(QStringLiteral("printerpropertiesdialog/images"), fileName));
}
