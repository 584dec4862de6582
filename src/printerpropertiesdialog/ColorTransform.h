#pragma once

#include <QImage>
#include <QMatrix4x4>

/**
 * How the colours of printed images are adjusted, in the units of the job options `brightness`,
 * `gamma`, `hue` and `saturation`. As initialised, colours stay as they are.
 */
struct ColorAdjustment {
    /** Percent, from 0 (black) to 200. */
    int brightness = 100;
    /** Thousandths, from 1 (dark) to 2000 (light). */
    int gamma = 1000;
    /** Degrees, from -360 to 360. */
    int hue = 0;
    /** Percent, from 0 (grey) to 200. */
    int saturation = 100;

    friend bool operator==(const ColorAdjustment &, const ColorAdjustment &) = default;
};

/**
 * Shows on the screen what the print server's image filters do with the colours of an image.
 *
 * Those of cups-filters 1.28 compute green from the red that they have just replaced, and blue from
 * that red and green. That fault is not followed here: after strong changes of saturation and hue,
 * the print differs from what is shown.
 */
namespace ColorTransform
{
/**
 * Brightness, saturation and hue as one matrix, which is multiplied with a column of red, green and
 * blue. Saturation and hue keep the luminance, and grey stays grey. The order of the three does not
 * matter: they commute.
 */
QMatrix4x4 matrix(const ColorAdjustment &adjustment);

/**
 * The picture with its colours adjusted. Alpha, size and device pixel ratio stay; the format
 * becomes RGB32, or ARGB32 for a picture with alpha. The adjustment must be in its ranges.
 */
QImage adjusted(const QImage &picture, const ColorAdjustment &adjustment);
} // namespace ColorTransform
