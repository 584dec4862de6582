#include "PixmapManager.h"

#include <QTest>

using namespace Qt::StringLiterals;

/** The process's own catalogue, with the index that is there before the program starts. */
class TestPixmapManagerInstance : public QObject
{
    Q_OBJECT
private slots:
    void isTheOneOfThePointer();
    void findsPictures();
    void isOfTheSizeOnAnyScreen();
    void genericPicturesSuitAnyBackground();
};

void TestPixmapManagerInstance::isTheOneOfThePointer()
{
    QCOMPARE(_PIXMAN, &PixmapManager::m_PixmapManagerInstance);
}

void TestPixmapManagerInstance::findsPictures()
{
    QPixmap picture;
    QVERIFY(_PIXMAN->printerPicture(picture, "Tarvel XQ-2010 Series", PixmapManager::BigPicture));
    QCOMPARE(picture.size(), QSize(3, 2));
    QVERIFY(!_PIXMAN->scannerPicture(picture, "Tarvel XQ-2010 Series", 0));
    QCOMPARE(picture.size(), QSize(3, 2));
    QVERIFY(!_PIXMAN->printerPicture(picture, "Something else", PixmapManager::BigPicture));
    QCOMPARE(picture.deviceIndependentSize(), QSizeF(48, 48));
}

namespace
{
/** How many opaque points of the picture have a gray value between the two. */
qsizetype points(const QImage &picture, int least, int most)
{
    qsizetype count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb colour = picture.pixel(x, y);
            count += qAlpha(colour) == 255 && qGray(colour) >= least && qGray(colour) <= most;
        }
    }
    return count;
}
} // namespace

/** On a fine screen the generic picture has more pixels, not more room. */
void TestPixmapManagerInstance::isOfTheSizeOnAnyScreen()
{
    const int ratio = qMax(1, qEnvironmentVariableIntValue("QT_SCALE_FACTOR"));
    QCOMPARE(qApp->devicePixelRatio(), qreal(ratio));
    QPixmap printer;
    QPixmap scanner;
    PixmapManager empty(u"/nonexistent/"_s);
    QVERIFY(!empty.printerPicture(printer, "", 0));
    QVERIFY(!empty.scannerPicture(scanner, "", 0));
    for (const QPixmap &picture : {printer, scanner}) {
        QCOMPARE(picture.size(), QSize(48, 48) * ratio);
        QCOMPARE(picture.devicePixelRatio(), qreal(ratio));
        QCOMPARE(qAlpha(picture.toImage().pixel(0, 0)), 0);
    }
    QVERIFY(printer.toImage() != scanner.toImage());
}

/** Light and dark are both in the picture, whatever is behind it. */
void TestPixmapManagerInstance::genericPicturesSuitAnyBackground()
{
    const PixmapManager empty(u"/nonexistent/"_s);
    QPixmap picture;
    empty.printerPicture(picture, "", 0);
    QVERIFY(points(picture.toImage(), 241, 255) > 200);
    QVERIFY(points(picture.toImage(), 0, 127) > 50);
    empty.scannerPicture(picture, "", 0);
    QVERIFY(points(picture.toImage(), 241, 255) > 200);
    QVERIFY(points(picture.toImage(), 0, 127) > 50);
}

QTEST_MAIN(TestPixmapManagerInstance)
#include "tst_pixmapmanager_instance.moc"
