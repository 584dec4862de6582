#include "PPDTreeColors.h"

#include <QPalette>

#include <algorithm>
#include <cmath>

namespace
{
double linear(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor &color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

/** In steps of one in 255, as coarse as a screen shows it. */
QColor withLightness(const QColor &color, int lightness)
{
    return QColor::fromHsl(color.hslHue(), color.hslSaturation(), lightness).toRgb();
}

/** `color`, as much darker or lighter (by `step`) as it takes to stand out against `other`. */
QColor standingOut(const QColor &color, const QColor &other, int step)
{
    QColor result = color.toRgb();
    for (int lightness = result.lightness();
         PPDTreeColors::contrast(result, other) < PPDTreeColors::ReadableContrast;) {
        lightness += step;
        if (lightness < 0 || lightness > 255)
            break;
        result = withLightness(color, lightness);
    }
    return result;
}

/** `color` in the shade that can be read on `background`. */
QColor readable(const QColor &color, const QColor &background)
{
    const bool darker = PPDTreeColors::contrast(Qt::black, background) >
                        PPDTreeColors::contrast(Qt::white, background);
    return standingOut(color, background, darker ? -1 : 1);
}
} // namespace

namespace PPDTreeColors
{
double contrast(const QColor &one, const QColor &other)
{
    const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

QColor textColor(const QPalette &palette, Role role)
{
    switch (role) {
    case Role::Conflict:
        return readable(Qt::red, palette.color(QPalette::Base));
    case Role::Choice:
        return readable(Qt::darkGreen, palette.color(QPalette::Base));
    case Role::Selected:
        return Qt::white;
    case Role::Text:
        break;
    }
    return palette.color(QPalette::Text);
}

QColor selectionColor(const QPalette &palette)
{
    return standingOut(palette.color(QPalette::Highlight), Qt::white, -1);
}
} // namespace PPDTreeColors
