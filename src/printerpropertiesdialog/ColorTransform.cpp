#include "ColorTransform.h"

#include <QtMath>

#include <algorithm>
#include <array>
#include <cmath>

namespace
{
/** What red, green and blue add to the luminance. */
constexpr float luminance[] = {0.3086F, 0.6094F, 0.082F};

// The rotations that turn the grey axis onto the blue axis: first about red, then about green.
constexpr float inverseRoot2 = 0.70710677F;
constexpr float sineAboutGreen = -0.57735026F;
constexpr float cosineAboutGreen = 0.81649658F;

QMatrix4x4 aboutRed(float sine, float cosine)
{
    return {1, 0, 0, 0, 0, cosine, -sine, 0, 0, sine, cosine, 0, 0, 0, 0, 1};
}

QMatrix4x4 aboutGreen(float sine, float cosine)
{
    return {cosine, 0, sine, 0, 0, 1, 0, 0, -sine, 0, cosine, 0, 0, 0, 0, 1};
}

QMatrix4x4 aboutBlue(float sine, float cosine)
{
    return {cosine, -sine, 0, 0, sine, cosine, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
}

/** Adds parts of red and green to blue. */
QMatrix4x4 shear(float red, float green)
{
    return {1, 0, 0, 0, 0, 1, 0, 0, red, green, 1, 0, 0, 0, 0, 1};
}

QMatrix4x4 brightnessMatrix(float brightness)
{
    QMatrix4x4 result;
    result.scale(brightness);
    return result;
}

QMatrix4x4 saturationMatrix(float saturation)
{
    QMatrix4x4 result;
    for (int channel = 0; channel < 3; ++channel) {
        for (int source = 0; source < 3; ++source)
            result(channel, source) = (1 - saturation) * luminance[source];
        result(channel, channel) += saturation;
    }
    return result;
}

QMatrix4x4 hueMatrix(float degrees)
{
    const QMatrix4x4 greyToBlue =
        aboutGreen(sineAboutGreen, cosineAboutGreen) * aboutRed(inverseRoot2, inverseRoot2);
    const QMatrix4x4 blueToGrey =
        aboutRed(-inverseRoot2, inverseRoot2) * aboutGreen(-sineAboutGreen, cosineAboutGreen);

    // In the turned frame, luminance rises in this direction; the shear makes that the blue axis.
    const QVector3D rise =
        greyToBlue.mapVector(QVector3D(luminance[0], luminance[1], luminance[2]));
    const float red = rise.x() / rise.z();
    const float green = rise.y() / rise.z();

    const float angle = qDegreesToRadians(degrees);
    return blueToGrey * shear(-red, -green) * aboutBlue(std::sin(angle), std::cos(angle)) *
           shear(red, green) * greyToBlue;
}

using ChannelTable = std::array<QRgb, 256>;

/**
 * Gamma for a channel's value, 255 being what the brightness has made of white. The filters apply
 * gamma to the ink that the other adjustments leave, and brightness to what gamma leaves.
 */
ChannelTable channelTable(double brightness, double gamma)
{
    ChannelTable table{};
    if (brightness <= 0)
        return table;
    for (std::size_t value = 0; value < table.size(); ++value) {
        const double ink = 1 - static_cast<double>(value) / 255;
        const double light = std::clamp(brightness * (1 - std::pow(ink, gamma)), 0.0, 1.0);
        table[value] = static_cast<QRgb>(std::lround(light * 255));
    }
    return table;
}

/** One row of the matrix, in fixed point: the picture is redrawn while a slider moves. */
class Channel
{
public:
    Channel(const QVector4D &row, float white)
        : m_red(fixed(row.x() / white))
        , m_green(fixed(row.y() / white))
        , m_blue(fixed(row.z() / white))
    {
    }
    /** The channel's value for a colour, 255 being white, as an index of the table. */
    std::size_t operator()(QRgb color) const
    {
        const int sum = m_red * qRed(color) + m_green * qGreen(color) + m_blue * qBlue(color);
        return static_cast<std::size_t>(std::clamp((sum + One / 2) >> Bits, 0, 255));
    }

private:
    static constexpr int Bits = 16;
    static constexpr int One = 1 << Bits;

    static int fixed(float value) { return static_cast<int>(std::lround(value * One)); }

    int m_red;
    int m_green;
    int m_blue;
};
} // namespace

QMatrix4x4 ColorTransform::matrix(const ColorAdjustment &adjustment)
{
    return brightnessMatrix(static_cast<float>(adjustment.brightness) / 100) *
           saturationMatrix(static_cast<float>(adjustment.saturation) / 100) *
           hueMatrix(static_cast<float>(adjustment.hue));
}

QImage ColorTransform::adjusted(const QImage &picture, const ColorAdjustment &adjustment)
{
    const bool hasAlpha = picture.hasAlphaChannel();
    QImage result =
        picture.convertToFormat(hasAlpha ? QImage::Format_ARGB32 : QImage::Format_RGB32);

    const float white =
        adjustment.brightness > 0 ? static_cast<float>(adjustment.brightness) / 100 : 1;
    const QMatrix4x4 colors = matrix(adjustment);
    const Channel red(colors.row(0), white);
    const Channel green(colors.row(1), white);
    const Channel blue(colors.row(2), white);
    const ChannelTable table =
        channelTable(adjustment.brightness / 100.0, adjustment.gamma / 1000.0);

    for (int y = 0; y < result.height(); ++y) {
        QRgb *const line = reinterpret_cast<QRgb *>(result.scanLine(y));
        std::transform(line, line + result.width(), line, [&](QRgb color) {
            const QRgb alpha = color & 0xff000000U;
            return alpha | table[red(color)] << 16 | table[green(color)] << 8 | table[blue(color)];
        });
    }
    return result;
}
