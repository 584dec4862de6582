#include "PictureMask.h"

#include <QElapsedTimer>
#include <QTest>

#include <random>

using namespace Qt::StringLiterals;

class TestPictureMask : public QObject
{
    Q_OBJECT
private slots:
    void nothing();
    void device();
    void sameAsTheToolkits();
    void spiralTakesLittleTime();
};

namespace
{
QString drawn(const QImage &mask)
{
    QString text;
    for (int y = 0; y < mask.height(); ++y) {
        for (int x = 0; x < mask.width(); ++x)
            text.append(mask.pixelIndex(x, y) ? u'#' : u'.');
        text.append(u'|');
    }
    return text;
}

/** A path of the background's colour that winds from a corner to the middle. */
QImage spiral(int side)
{
    QImage image(side, side, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPoint at(0, 0);
    QPoint step(1, 0);
    const QRgb white = qRgb(255, 255, 255);
    const auto isFree = [&](QPoint point) {
        return !image.valid(point) || image.pixel(point) != white;
    };
    int turns = 0;
    while (turns < 2) {
        image.setPixel(at, white);
        const QPoint next = at + step;
        if (image.valid(next) && isFree(next) && isFree(next + step)) {
            at = next;
            turns = 0;
        } else {
            step = QPoint(-step.y(), step.x());
            ++turns;
        }
    }
    return image;
}
} // namespace

void TestPictureMask::nothing()
{
    QVERIFY(PictureMask::heuristic(QImage()).isNull());
}

/** The device has a hole of the background's colour, which stays. */
void TestPictureMask::device()
{
    QImage image(5, 5, QImage::Format_RGB32);
    image.fill(Qt::white);
    for (int i = 1; i <= 3; ++i) {
        image.setPixelColor(i, 1, Qt::red);
        image.setPixelColor(i, 3, Qt::red);
    }
    image.setPixelColor(1, 2, Qt::red);
    image.setPixelColor(3, 2, Qt::red);
    QCOMPARE(drawn(PictureMask::heuristic(image)), u".....|.###.|.###.|.###.|.....|"_s);
}

void TestPictureMask::sameAsTheToolkits()
{
    std::mt19937 random(1);
    const QList<QImage::Format> formats{QImage::Format_RGB32, QImage::Format_RGB16,
                                        QImage::Format_Grayscale8, QImage::Format_Mono};
    for (int i = 0; i < 3000; ++i) {
        QImage image(1 + int(random() % 12), 1 + int(random() % 12), QImage::Format_RGB32);
        const auto colours = 1 + random() % 4;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                image.setPixel(x, y, qRgb(int(random() % colours) * 60, 0, 0));
        }
        image = image.convertToFormat(formats[i % formats.size()]);
        const QImage mask = PictureMask::heuristic(image);
        const QImage expected = image.createHeuristicMask();
        QCOMPARE(mask.size(), expected.size());
        QCOMPARE(drawn(mask), drawn(expected));
        QCOMPARE(mask, expected);
    }
}

void TestPictureMask::spiralTakesLittleTime()
{
    QCOMPARE(PictureMask::heuristic(spiral(60)), spiral(60).createHeuristicMask());
    const QImage image = spiral(1024);
    QElapsedTimer timer;
    timer.start();
    const QImage mask = PictureMask::heuristic(image);
    QVERIFY2(timer.elapsed() < 5000, qPrintable(QString::number(timer.elapsed())));
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            QCOMPARE(mask.pixelIndex(x, y) == 0, image.pixel(x, y) == qRgb(255, 255, 255));
    }
}

QTEST_GUILESS_MAIN(TestPictureMask)
#include "tst_picturemask.moc"
