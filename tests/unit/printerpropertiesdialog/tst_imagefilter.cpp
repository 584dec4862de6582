#include "ColorTransform.h"

#include "ColorAdjustmentRows.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <optional>

// What the sample picture shows is held against what the print server's own image filters make of
// the same picture with the same job options.
//
// Brightness and gamma agree to one step of 255 with the filter to PDF. The filter to rasters has
// other curves for them, which go the same ways.
//
// Saturation and hue are the same matrix in both filters of cups-filters 1.28, but with a fault:
// they compute green from the red that they have just replaced, and blue from that red and green.
// (A red without saturation is printed as 79, 24, 39.) What the preview shows is the matrix, so it
// agrees with the print while colours change little. Beyond half the saturation or 60 degrees it
// does not; beyond 90 degrees green and blue can even go the other way.

using ColorAdjustmentRows::addColumns;
using ColorAdjustmentRows::addRow;
using ColorAdjustmentRows::fetch;

namespace
{
using Means = std::array<double, 3>;

constexpr char filterFolder[] = "/usr/lib/cups/filter/";

QImage samplePicture()
{
    return QImage(QStringLiteral(SAMPLE_PICTURE)).convertToFormat(QImage::Format_RGB32);
}

/** The output of a program that has to succeed; empty when it does not. */
QByteArray output(const QString &program, const QStringList &arguments, const QString &driver)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("PPD"));
    if (!driver.isEmpty())
        environment.insert(QStringLiteral("PPD"), driver);

    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    process.waitForFinished(60'000);
    if (process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0 &&
        process.error() == QProcess::UnknownError)
        return process.readAllStandardOutput();
    qWarning("%s: %s", qPrintable(program), process.readAllStandardError().constData());
    return {};
}

/** The job options with which each pixel of the picture becomes one pixel at 72 dpi. */
QString jobOptions(const ColorAdjustment &adjustment)
{
    return QStringLiteral("ppi=72 position=top-left brightness=%1 gamma=%2 hue=%3 saturation=%4")
        .arg(adjustment.brightness)
        .arg(adjustment.gamma)
        .arg(adjustment.hue)
        .arg(adjustment.saturation);
}

QByteArray filtered(const char *filter, const ColorAdjustment &adjustment, const QString &driver)
{
    const QStringList arguments{QStringLiteral("1"),     QStringLiteral("user"),
                                QStringLiteral("title"), QStringLiteral("1"),
                                jobOptions(adjustment),  QStringLiteral(SAMPLE_PICTURE)};
    return output(QLatin1String(filterFolder) + QLatin1String(filter), arguments, driver);
}

void write(const QString &name, const QByteArray &data)
{
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(data), data.size());
}

/** The first page of a raster of 8-bit RGB, as the filters write it: not compressed. */
QImage readRaster(const QByteArray &raster)
{
    constexpr qsizetype widthAt = 4 + 372;
    constexpr qsizetype heightAt = 4 + 376;
    constexpr qsizetype bytesPerLineAt = 4 + 392;
    constexpr qsizetype pixelsAt = 4 + 1796;
    if (raster.size() < pixelsAt || !raster.startsWith("3SaR"))
        return {};
    const auto number = [&raster](qsizetype at) {
        return qFromLittleEndian<int>(raster.constData() + at);
    };
    const int width = number(widthAt);
    const int height = number(heightAt);
    const int bytesPerLine = number(bytesPerLineAt);
    if (raster.size() < pixelsAt + qsizetype(bytesPerLine) * height || bytesPerLine < 3 * width)
        return {};
    const auto *pixels = reinterpret_cast<const uchar *>(raster.constData() + pixelsAt);
    return QImage(pixels, width, height, bytesPerLine, QImage::Format_RGB888)
        .convertToFormat(QImage::Format_RGB32);
}

/** The top left corner of what is not white. */
QPoint printedCorner(const QImage &page)
{
    QPoint corner(page.width(), page.height());
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x) {
            if (page.pixel(x, y) != qRgb(255, 255, 255))
                corner = {std::min(corner.x(), x), std::min(corner.y(), y)};
        }
    }
    return corner;
}

Means means(const QImage &picture)
{
    Means sums{};
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb color = picture.pixel(x, y);
            sums[0] += qRed(color);
            sums[1] += qGreen(color);
            sums[2] += qBlue(color);
        }
    }
    for (double &sum : sums)
        sum /= double(picture.width()) * picture.height();
    return sums;
}

/** How far any channel of any pixel differs, at most. */
int pixelDistance(const QImage &a, const QImage &b)
{
    int result = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb one = a.pixel(x, y);
            const QRgb other = b.pixel(x, y);
            result = std::max({result, std::abs(qRed(one) - qRed(other)),
                               std::abs(qGreen(one) - qGreen(other)),
                               std::abs(qBlue(one) - qBlue(other))});
        }
    }
    return result;
}

double meanDistance(const QImage &a, const QImage &b, std::size_t channels = 3)
{
    const Means one = means(a);
    const Means other = means(b);
    double result = 0;
    for (std::size_t i = 0; i < channels; ++i)
        result = std::max(result, std::abs(one[i] - other[i]));
    return result;
}

/** Whether two means have moved the same way; both by little is no way. */
bool isSameWay(double oneMove, double otherMove)
{
    const auto [less, more] = std::minmax({std::abs(oneMove), std::abs(otherMove)});
    const bool isLittle = less < 1 && more < 2.5;
    return isLittle || oneMove * otherMove > 0;
}

QString described(const QImage &picture)
{
    const Means values = means(picture);
    return QStringLiteral("(%1, %2, %3)")
        .arg(values[0], 0, 'f', 1)
        .arg(values[1], 0, 'f', 1)
        .arg(values[2], 0, 'f', 1);
}

/** Each channel of both pictures has moved the same way from the sample. */
void compareDirections(const QImage &printed, const QImage &shown)
{
    const Means before = means(samplePicture());
    const Means printedMeans = means(printed);
    const Means shownMeans = means(shown);
    const QByteArray said = (described(printed) + QStringLiteral(" is printed, ") +
                             described(shown) + QStringLiteral(" shown"))
                                .toLatin1();
    for (std::size_t i = 0; i < 3; ++i) {
        const bool agrees = isSameWay(printedMeans[i] - before[i], shownMeans[i] - before[i]);
        QVERIFY2(agrees, said.constData());
    }
}

/** A channel as the filters compute it: rounded term by term, towards zero after adding a half. */
int replacedChannel(const QVector4D &row, const std::array<int, 3> &color)
{
    int sum = 0;
    for (int i = 0; i < 3; ++i)
        sum += static_cast<int>(double(row[i]) * color[static_cast<std::size_t>(i)] + 0.5);
    return std::clamp(sum, 0, 255);
}

/** The matrix as the filters apply it: each channel from those that are replaced already. */
QImage replacedInTurn(const QImage &picture, const QMatrix4x4 &matrix)
{
    QImage result = picture;
    for (int y = 0; y < result.height(); ++y) {
        for (int x = 0; x < result.width(); ++x) {
            const QRgb pixel = result.pixel(x, y);
            std::array<int, 3> color{qRed(pixel), qGreen(pixel), qBlue(pixel)};
            for (int channel = 0; channel < 3; ++channel)
                color[static_cast<std::size_t>(channel)] =
                    replacedChannel(matrix.row(channel), color);
            result.setPixel(x, y, qRgb(color[0], color[1], color[2]));
        }
    }
    return result;
}

/** What the filter to PDF makes of the sample, if the fault is all that tells it from the matrix.
 */
QImage predicted(const ColorAdjustment &adjustment)
{
    const QMatrix4x4 colors =
        ColorTransform::matrix({100, 1000, adjustment.hue, adjustment.saturation});
    return ColorTransform::adjusted(replacedInTurn(samplePicture(), colors),
                                    {adjustment.brightness, adjustment.gamma, 0, 100});
}

void addLights()
{
    for (int brightness : {0, 5, 50, 90, 110, 150, 200})
        addRow(brightness, 1000, 0, 100);
    for (int gamma : {1, 100, 500, 900, 1100, 1500, 2000})
        addRow(100, gamma, 0, 100);
    addRow(150, 600, 0, 100);
    addRow(60, 1700, 0, 100);
    addRow(130, 1500, 0, 100);
}

void addMildColors()
{
    for (int saturation : {25, 50, 75, 90, 110, 125, 150})
        addRow(100, 1000, 0, saturation);
    for (int hue : {-30, -10, 10, 30})
        addRow(100, 1000, hue, 100);
    addRow(100, 1000, 20, 130);
    addRow(120, 1300, 15, 80);
    addRow(80, 1200, -20, 120);
    addRow(140, 700, 10, 130);
}

void addStrongColors()
{
    for (int saturation : {0, 175, 200})
        addRow(100, 1000, 0, saturation);
    for (int hue : {-300, -180, -120, -90, -60, 60, 90, 120, 240})
        addRow(100, 1000, hue, 100);
    addRow(120, 1300, 60, 150);
    addRow(80, 800, -120, 60);
}
} // namespace

class TestImageFilter : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(!samplePicture().isNull());
        QVERIFY(m_folder.isValid());
        QVERIFY(!printedAsPdf({}).isNull());
        QVERIFY(!printedAsRaster({}).isNull());
    }

    /** The measurements see the very pixels of the picture. */
    void printsNeutralPicture()
    {
        QCOMPARE(printedAsPdf({}), samplePicture());
        QCOMPARE(printedAsRaster({}), samplePicture());
        QCOMPARE(shown({}), samplePicture());
        QCOMPARE(printedAsPdf({100, 1000, 360, 100}), samplePicture());
    }

    void agreesInLight_data()
    {
        addColumns();
        addLights();
    }

    /** Brightness and gamma come out as they are shown, pixel by pixel. */
    void agreesInLight()
    {
        const ColorAdjustment adjustment = fetch();
        const QImage printed = printedAsPdf(adjustment);
        compareDirections(printed, shown(adjustment));
        QVERIFY(pixelDistance(printed, shown(adjustment)) <= 1);
    }

    void agreesInDirectionWithRaster_data()
    {
        addColumns();
        addLights();
        addMildColors();
    }

    void agreesInDirectionWithRaster()
    {
        const ColorAdjustment adjustment = fetch();
        compareDirections(printedAsRaster(adjustment), shown(adjustment));
    }

    void agreesInMildColors_data()
    {
        addColumns();
        addMildColors();
    }

    /** The means differ by 4.6 at most. */
    void agreesInMildColors()
    {
        const ColorAdjustment adjustment = fetch();
        const QImage printed = printedAsPdf(adjustment);
        compareDirections(printed, shown(adjustment));
        QVERIFY(meanDistance(printed, shown(adjustment)) < 5.5);
        QVERIFY(pixelDistance(printed, predicted(adjustment)) <= 2);
    }

    void differsInStrongColors_data()
    {
        addColumns();
        addStrongColors();
    }

    /**
     * The means of green and blue differ by up to 28.7. Red, which the filters compute first,
     * differs by their rounding alone, which comes to 1.7.
     */
    void differsInStrongColors()
    {
        const ColorAdjustment adjustment = fetch();
        const QImage printed = printedAsPdf(adjustment);
        QVERIFY(meanDistance(printed, shown(adjustment), 1) < 2);
        QVERIFY(meanDistance(printed, shown(adjustment)) < 32);
        QVERIFY(pixelDistance(printed, predicted(adjustment)) <= 2);
    }

private:
    QString pdfFile() const { return m_folder.filePath(QStringLiteral("page.pdf")); }

    static QImage shown(const ColorAdjustment &adjustment)
    {
        return ColorTransform::adjusted(samplePicture(), adjustment);
    }

    /** The picture as it comes out of the filter to PDF; null when that fails. */
    QImage printedAsPdf(const ColorAdjustment &adjustment)
    {
        write(pdfFile(), filtered("imagetopdf", adjustment, QString()));
        const QStringList arguments{QStringLiteral("-q"),
                                    QStringLiteral("-dBATCH"),
                                    QStringLiteral("-dNOPAUSE"),
                                    QStringLiteral("-dSAFER"),
                                    QStringLiteral("-sDEVICE=ppmraw"),
                                    QStringLiteral("-r72"),
                                    QStringLiteral("-sOutputFile=%stdout"),
                                    pdfFile()};
        return cropped(QImage::fromData(output(QStringLiteral("gs"), arguments, QString())),
                       m_pdfCorner);
    }

    /** The same with the filter to rasters. */
    QImage printedAsRaster(const ColorAdjustment &adjustment)
    {
        return cropped(
            readRaster(filtered("imagetoraster", adjustment, QStringLiteral(RASTER_DRIVER))),
            m_rasterCorner);
    }

    /** The picture on the page. The first page, with all colours as they are, tells its place. */
    static QImage cropped(const QImage &page, std::optional<QPoint> &corner)
    {
        if (page.isNull())
            return {};
        if (!corner)
            corner = printedCorner(page);
        return page.copy(QRect(*corner, samplePicture().size()))
            .convertToFormat(QImage::Format_RGB32);
    }

    QTemporaryDir m_folder;
    std::optional<QPoint> m_pdfCorner;
    std::optional<QPoint> m_rasterCorner;
};

QTEST_GUILESS_MAIN(TestImageFilter)
#include "tst_imagefilter.moc"
