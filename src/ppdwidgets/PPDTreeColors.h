#pragma once

#include <QColor>

class QPalette;

/** The colours of the driver option tree: as familiar as the palette's background lets them be. */
namespace PPDTreeColors
{
/** The contrast that text has against its background, at least (WCAG 2.1, level AA). */
inline constexpr double ReadableContrast = 4.5;

enum class Role { Text, Conflict, Choice, Selected };

/** The colour of a text. Conflict is a red, Choice a dark green, Selected white. */
QColor textColor(const QPalette &palette, Role role);
/** The palette's highlight, darkened as far as white text needs it. */
QColor selectionColor(const QPalette &palette);
/** The contrast of two colours, from 1 to 21 (WCAG 2.1). */
double contrast(const QColor &one, const QColor &other);
} // namespace PPDTreeColors
