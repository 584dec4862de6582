#include "ColorTransform.h"

#include "ColorAdjustmentRows.h"

#include <QTest>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

using ColorAdjustmentRows::addColumns;
using ColorAdjustmentRows::addRow;
using ColorAdjustmentRows::fetch;

namespace
{
using Color = std::array<double, 3>;

constexpr Color weights{0.3086, 0.6094, 0.082};

double luminance(const Color &color)
{
    return weights[0] * color[0] + weights[1] * color[1] + weights[2] * color[2];
}

Color mixed(const Color &color, double grey, double share)
{
    return {grey + share * (color[0] - grey), grey + share * (color[1] - grey),
            grey + share * (color[2] - grey)};
}

/** Turns a colour about the grey axis by Rodrigues' formula; red goes towards green. */
Color turned(const Color &color, double degrees)
{
    const double angle = degrees * std::numbers::pi / 180;
    const double mean = (color[0] + color[1] + color[2]) / 3;
    const double side = std::sin(angle) / std::sqrt(3.0);
    Color result{};
    for (std::size_t i = 0; i < 3; ++i) {
        result[i] = mean + std::cos(angle) * (color[i] - mean) +
                    side * (color[(i + 2) % 3] - color[(i + 1) % 3]);
    }
    return result;
}

/** Hue, saturation and brightness without any matrix: the luminance is put right afterwards. */
Color reference(const Color &color, const ColorAdjustment &adjustment)
{
    const double grey = luminance(color);
    Color result = turned(color, adjustment.hue);
    const double gain = grey - luminance(result);
    for (double &channel : result)
        channel += gain;
    result = mixed(result, grey, adjustment.saturation / 100.0);
    return mixed(result, 0, adjustment.brightness / 100.0);
}

/** What a channel becomes after gamma; `value` is without the brightness, from 0 to 1. */
int printed(double value, const ColorAdjustment &adjustment)
{
    const double light = 1 - std::pow(1 - std::clamp(value, 0.0, 1.0), adjustment.gamma / 1000.0);
    return static_cast<int>(
        std::lround(255 * std::clamp(light * adjustment.brightness / 100.0, 0.0, 1.0)));
}

Color column(const QMatrix4x4 &matrix, int index)
{
    const QVector4D values = matrix.column(index);
    return {double(values.x()), double(values.y()), double(values.z())};
}

/** How far the matrix is from another one, at most. */
float distance(const QMatrix4x4 &a, const QMatrix4x4 &b)
{
    float result = 0;
    for (int i = 0; i < 16; ++i)
        result = std::max(result, std::abs(a.constData()[i] - b.constData()[i]));
    return result;
}

QRgb adjustedColor(QRgb color, const ColorAdjustment &adjustment)
{
    QImage picture(1, 1, QImage::Format_RGB32);
    picture.fill(color);
    return ColorTransform::adjusted(picture, adjustment).pixel(0, 0);
}

/** All colours whose channels are multiples of 15; an odd width of 289 pixels. */
QImage colorCube()
{
    QImage picture(289, 17, QImage::Format_RGB32);
    for (int red = 0; red < 17; ++red) {
        for (int green = 0; green < 17; ++green) {
            for (int blue = 0; blue < 17; ++blue)
                picture.setPixel(17 * red + green, blue, qRgb(15 * red, 15 * green, 15 * blue));
        }
    }
    return picture;
}

QImage greyRamp()
{
    QImage picture(256, 1, QImage::Format_RGB32);
    for (int value = 0; value < 256; ++value)
        picture.setPixel(value, 0, qRgb(value, value, value));
    return picture;
}

/** Every pixel another colour and another alpha. */
QImage translucentPicture()
{
    QImage picture(64, 64, QImage::Format_ARGB32);
    for (int y = 0; y < 64; ++y) {
        for (int x = 0; x < 64; ++x)
            picture.setPixel(x, y, qRgba(4 * x, 4 * y, 2 * (x + y), (64 * y + x) % 256));
    }
    return picture;
}

void addAdjustments()
{
    addColumns();
    addRow(100, 1000, 0, 100);
    for (int brightness : {0, 1, 50, 99, 101, 150, 200})
        addRow(brightness, 1000, 0, 100);
    for (int gamma : {1, 100, 500, 999, 1001, 1500, 2000})
        addRow(100, gamma, 0, 100);
    for (int hue = -360; hue <= 360; hue += 30)
        addRow(100, 1000, hue, 100);
    for (int saturation : {0, 1, 50, 99, 101, 150, 200})
        addRow(100, 1000, 0, saturation);
    addRow(130, 700, 45, 160);
    addRow(60, 1800, -75, 40);
    addRow(200, 2000, 180, 200);
    addRow(1, 1, -360, 0);
    addRow(0, 1, 13, 200);
}

/** How far any channel of any pixel is from the reference, at most. */
int distanceFromReference(const QImage &before, const QImage &after,
                          const ColorAdjustment &adjustment)
{
    ColorAdjustment unlit = adjustment;
    unlit.brightness = 100;
    int result = 0;
    for (int y = 0; y < before.height(); ++y) {
        for (int x = 0; x < before.width(); ++x) {
            const QColor from = before.pixelColor(x, y);
            const QColor to = after.pixelColor(x, y);
            const Color wanted =
                reference({from.red() / 255.0, from.green() / 255.0, from.blue() / 255.0}, unlit);
            // The filters round to 8 bits before gamma.
            const auto rounded = [](double value) { return std::round(value * 255) / 255; };
            result = std::max({result, std::abs(to.red() - printed(rounded(wanted[0]), adjustment)),
                               std::abs(to.green() - printed(rounded(wanted[1]), adjustment)),
                               std::abs(to.blue() - printed(rounded(wanted[2]), adjustment))});
        }
    }
    return result;
}
} // namespace

class TestColorTransform : public QObject
{
    Q_OBJECT

private slots:
    void startsNeutral()
    {
        const ColorAdjustment adjustment;
        QCOMPARE(adjustment.brightness, 100);
        QCOMPARE(adjustment.gamma, 1000);
        QCOMPARE(adjustment.hue, 0);
        QCOMPARE(adjustment.saturation, 100);
        QVERIFY(distance(ColorTransform::matrix(adjustment), QMatrix4x4()) < 1e-6F);
    }

    void multipliesAsDesigned_data() { addAdjustments(); }

    void multipliesAsDesigned()
    {
        const ColorAdjustment adjustment = fetch();
        const QMatrix4x4 matrix = ColorTransform::matrix(adjustment);
        for (int source = 0; source < 3; ++source) {
            Color primary{};
            primary[static_cast<std::size_t>(source)] = 1;
            const Color wanted = reference(primary, adjustment);
            const Color found = column(matrix, source);
            for (std::size_t channel = 0; channel < 3; ++channel)
                QVERIFY2(std::abs(found[channel] - wanted[channel]) < 5e-6,
                         qPrintable(QString::number(found[channel] - wanted[channel])));
        }
        QCOMPARE(matrix.column(3), QVector4D(0, 0, 0, 1));
        QCOMPARE(matrix.row(3), QVector4D(0, 0, 0, 1));
    }

    /** Saturation as its coefficients are written down. */
    void mixesWithLuminance_data()
    {
        QTest::addColumn<int>("saturation");
        for (int saturation : {0, 25, 50, 100, 150, 200})
            QTest::addRow("%d", saturation) << saturation;
    }

    void mixesWithLuminance()
    {
        QFETCH(int, saturation);

        const double s = saturation / 100.0;
        const QMatrix4x4 matrix = ColorTransform::matrix({100, 1000, 0, saturation});
        for (int channel = 0; channel < 3; ++channel) {
            for (int source = 0; source < 3; ++source) {
                const double own = channel == source ? s : 0;
                const double wanted = (1 - s) * weights[static_cast<std::size_t>(source)] + own;
                QVERIFY(std::abs(double(matrix(channel, source)) - wanted) < 1e-6);
            }
        }
    }

    void ordersDoNotMatter()
    {
        for (int hue = -360; hue <= 360; hue += 15) {
            const QMatrix4x4 turn = ColorTransform::matrix({100, 1000, hue, 100});
            const QMatrix4x4 mix = ColorTransform::matrix({100, 1000, 0, 170});
            QVERIFY(distance(turn * mix, mix * turn) < 5e-6F);
            QVERIFY(distance(turn * mix, ColorTransform::matrix({100, 1000, hue, 170})) < 5e-6F);
        }
    }

    /** A full turn, and a turn and its opposite, come back. */
    void hueIsTurn()
    {
        for (int hue : {-360, 360})
            QVERIFY(distance(ColorTransform::matrix({100, 1000, hue, 100}), QMatrix4x4()) < 2e-6F);
        for (int hue = 0; hue <= 360; hue += 15) {
            const QMatrix4x4 forth = ColorTransform::matrix({100, 1000, hue, 100});
            const QMatrix4x4 back = ColorTransform::matrix({100, 1000, -hue, 100});
            QVERIFY(distance(forth * back, QMatrix4x4()) < 5e-6F);
            const QMatrix4x4 other = ColorTransform::matrix({100, 1000, hue - 360, 100});
            QVERIFY(distance(forth, other) < 5e-6F);
        }
    }

    void keepsLuminance()
    {
        for (int hue = -360; hue <= 360; hue += 5) {
            for (int saturation = 0; saturation <= 200; saturation += 25) {
                const QMatrix4x4 matrix = ColorTransform::matrix({100, 1000, hue, saturation});
                for (int source = 0; source < 3; ++source) {
                    const double kept = luminance(column(matrix, source));
                    QVERIFY(std::abs(kept - weights[static_cast<std::size_t>(source)]) < 5e-6);
                }
            }
        }
    }

    void keepsGreys()
    {
        const QImage ramp = greyRamp();
        for (int hue = -360; hue <= 360; hue += 7) {
            for (int saturation = 0; saturation <= 200; saturation += 20)
                QCOMPARE(ColorTransform::adjusted(ramp, {100, 1000, hue, saturation}), ramp);
        }
    }

    void changesGreysAlike_data() { addAdjustments(); }

    void changesGreysAlike()
    {
        const QImage ramp = ColorTransform::adjusted(greyRamp(), fetch());
        QVERIFY(ramp.isGrayscale());
    }

    /** Without saturation, each colour is its luminance. */
    void removesColors()
    {
        const QImage cube = colorCube();
        const QImage grey = ColorTransform::adjusted(cube, {100, 1000, 77, 0});
        QVERIFY(grey.isGrayscale());
        for (int y = 0; y < cube.height(); ++y) {
            for (int x = 0; x < cube.width(); ++x) {
                const QColor color = cube.pixelColor(x, y);
                const double wanted =
                    luminance({double(color.red()), double(color.green()), double(color.blue())});
                QVERIFY(std::abs(qRed(grey.pixel(x, y)) - wanted) < 0.51);
            }
        }
    }

    void leavesNeutralPictures_data()
    {
        QTest::addColumn<QImage>("picture");
        QTest::addColumn<int>("hue");

        QImage large = colorCube();
        large.setDevicePixelRatio(2);
        for (int hue : {-360, 0, 360}) {
            QTest::addRow("opaque, hue %d", hue) << colorCube() << hue;
            QTest::addRow("translucent, hue %d", hue) << translucentPicture() << hue;
            QTest::addRow("for large screens, hue %d", hue) << large << hue;
            QTest::addRow("24 bits, hue %d", hue)
                << colorCube().convertToFormat(QImage::Format_RGB888) << hue;
            QTest::addRow("indexed greys, hue %d", hue)
                << greyRamp().convertToFormat(QImage::Format_Grayscale8) << hue;
        }
    }

    void leavesNeutralPictures()
    {
        QFETCH(QImage, picture);
        QFETCH(int, hue);

        const bool alpha = picture.hasAlphaChannel();
        const QImage::Format format = alpha ? QImage::Format_ARGB32 : QImage::Format_RGB32;
        const QImage result = ColorTransform::adjusted(picture, {100, 1000, hue, 100});
        QCOMPARE(result.format(), format);
        QCOMPARE(result, picture.convertToFormat(format));
        QCOMPARE(result.devicePixelRatio(), picture.devicePixelRatio());
    }

    void changesPictures_data() { addAdjustments(); }

    void changesPictures()
    {
        const ColorAdjustment adjustment = fetch();
        const QImage cube = colorCube();
        const QImage result = ColorTransform::adjusted(cube, adjustment);
        // A sum beside a half may be rounded either way; then gamma and brightness act on it.
        QVERIFY(distanceFromReference(cube, result, adjustment) <= 2);
    }

    void changesColors_data()
    {
        QTest::addColumn<QRgb>("before");
        QTest::addColumn<int>("brightness");
        QTest::addColumn<int>("gamma");
        QTest::addColumn<int>("hue");
        QTest::addColumn<int>("saturation");
        QTest::addColumn<QRgb>("after");

        const QRgb skin = qRgb(224, 172, 140);
        QTest::newRow("no light") << skin << 0 << 1000 << 0 << 100 << qRgb(0, 0, 0);
        QTest::newRow("half the light") << skin << 50 << 1000 << 0 << 100 << qRgb(112, 86, 70);
        QTest::newRow("clamped to white") << skin << 150 << 1000 << 0 << 100 << qRgb(255, 255, 210);
        QTest::newRow("light gamma") << skin << 100 << 2000 << 0 << 100 << qRgb(251, 228, 203);
        QTest::newRow("dark gamma") << skin << 100 << 500 << 0 << 100 << qRgb(166, 110, 84);
        QTest::newRow("dark as can be") << skin << 100 << 1 << 0 << 100 << qRgb(1, 0, 0);
        QTest::newRow("gamma, then brightness")
            << qRgb(128, 64, 32) << 130 << 1500 << 0 << 100 << qRgb(215, 117, 60);
        QTest::newRow("white is no ink")
            << qRgb(255, 255, 255) << 50 << 2000 << 0 << 100 << qRgb(128, 128, 128);
        QTest::newRow("red to green")
            << qRgb(255, 0, 0) << 100 << 1000 << 120 << 100 << qRgb(0, 178, 0);
        QTest::newRow("red to blue")
            << qRgb(255, 0, 0) << 100 << 1000 << -120 << 100 << qRgb(58, 58, 255);
        QTest::newRow("red without colour")
            << qRgb(255, 0, 0) << 100 << 1000 << 0 << 0 << qRgb(79, 79, 79);
        QTest::newRow("clamped at both ends")
            << qRgb(70, 120, 50) << 100 << 1000 << 0 << 200 << qRgb(41, 141, 1);
        QTest::newRow("as saturated as can be")
            << qRgb(255, 0, 0) << 100 << 1000 << 0 << 200 << qRgb(255, 0, 0);
    }

    void changesColors()
    {
        QFETCH(QRgb, before);
        QFETCH(int, brightness);
        QFETCH(int, gamma);
        QFETCH(int, hue);
        QFETCH(int, saturation);
        QFETCH(QRgb, after);

        const QRgb result = adjustedColor(before, {brightness, gamma, hue, saturation});
        QCOMPARE(QColor(result).name(), QColor(after).name());
    }

    /** More of either never darkens, and lightens all but black and white. */
    void lightensSteadily()
    {
        for (const QRgb color : {qRgb(40, 90, 200), qRgb(128, 128, 128), qRgb(1, 254, 60)}) {
            for (int step = 0; step < 20; ++step) {
                const QRgb dark = adjustedColor(color, {10 * step, 1000, 0, 100});
                const QRgb light = adjustedColor(color, {10 * (step + 1), 1000, 0, 100});
                QVERIFY(qRed(light) >= qRed(dark) && qBlue(light) >= qBlue(dark));
                const QRgb heavy = adjustedColor(color, {100, 1 + 99 * step, 0, 100});
                const QRgb thin = adjustedColor(color, {100, 100 + 99 * step, 0, 100});
                QVERIFY(qRed(thin) >= qRed(heavy) && qGreen(thin) >= qGreen(heavy));
            }
            QVERIFY(qBlue(adjustedColor(color, {110, 1000, 0, 100})) > qBlue(color));
            QVERIFY(qBlue(adjustedColor(color, {90, 1000, 0, 100})) < qBlue(color));
            QVERIFY(qBlue(adjustedColor(color, {100, 1100, 0, 100})) > qBlue(color));
            QVERIFY(qBlue(adjustedColor(color, {100, 900, 0, 100})) < qBlue(color));
        }
    }

    void keepsAlpha()
    {
        const QImage picture = translucentPicture();
        for (const QImage::Format format :
             {QImage::Format_ARGB32, QImage::Format_ARGB32_Premultiplied}) {
            const QImage before = picture.convertToFormat(format);
            const QImage after = ColorTransform::adjusted(before, {140, 700, 60, 150});
            QCOMPARE(after.convertToFormat(QImage::Format_Alpha8),
                     picture.convertToFormat(QImage::Format_Alpha8));
        }
    }

    void leavesItsSource()
    {
        const QImage picture = colorCube();
        const QImage copy = picture.copy();
        const QImage result = ColorTransform::adjusted(picture, {150, 1000, 0, 100});
        QVERIFY(result != picture);
        QCOMPARE(picture, copy);
    }

    void takesNoPicture() { QVERIFY(ColorTransform::adjusted(QImage(), {}).isNull()); }

    /** The sums of the fixed point numbers, 255 << 16 times a row, fit into 32 bits. */
    void fitsFixedPoint()
    {
        for (int hue = -360; hue <= 360; ++hue) {
            const QMatrix4x4 matrix = ColorTransform::matrix({100, 1000, hue, 200});
            for (int channel = 0; channel < 3; ++channel) {
                const QVector4D row = matrix.row(channel);
                const float sum = std::abs(row.x()) + std::abs(row.y()) + std::abs(row.z());
                QVERIFY(sum < 64);
            }
        }
    }
};

QTEST_APPLESS_MAIN(TestColorTransform)
#include "tst_colortransform.moc"
