#pragma once

#include <QColor>
#include <QPalette>

/** The looks that a desktop may give to the dialog. */
namespace Looks
{
inline QPalette darkPalette()
{
    QPalette palette(QColor(0x35, 0x35, 0x35), QColor(0x35, 0x35, 0x35));
    palette.setColor(QPalette::Base, QColor(0x1e, 0x1e, 0x1e));
    palette.setColor(QPalette::Highlight, QColor(0x2a, 0x82, 0xda));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}
} // namespace Looks
