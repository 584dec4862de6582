#include "DevicePicture.h"
#include "PixmapManager.h"

#include <QTest>

using namespace Qt::StringLiterals;

/** The picture of the print dialog, with the index that is there before the program starts. */
class TestDevicePicture : public QObject
{
    Q_OBJECT
private slots:
    void ofTheIndex_data();
    void ofTheIndex();
    void genericWithoutAnEntry_data();
    void genericWithoutAnEntry();
};

void TestDevicePicture::ofTheIndex_data()
{
    QTest::addColumn<QString>("makeAndModel");
    QTest::addColumn<QSize>("size");
    QTest::newRow("the big one") << "Tarvel XQ-2010 Series" << QSize(3, 2);
    QTest::newRow("only a small one") << "Tarvel XQ-77" << QSize(2, 2);
    QTest::newRow("too wide for the dialog") << "Tarvel XQ-9" << QSize(256, 2);
}

void TestDevicePicture::ofTheIndex()
{
    QFETCH(QString, makeAndModel);
    QTEST(devicePicture(makeAndModel).size(), "size");
}

void TestDevicePicture::genericWithoutAnEntry_data()
{
    QTest::addColumn<QString>("makeAndModel");
    QTest::newRow("unknown") << "Something else";
    QTest::newRow("no name") << QString();
}

void TestDevicePicture::genericWithoutAnEntry()
{
    QFETCH(QString, makeAndModel);
    QPixmap generic;
    QVERIFY(!PixmapManager(u"/nonexistent/"_s).printerPicture(generic, "", 0));
    QCOMPARE(devicePicture(makeAndModel).toImage(), generic.toImage());
}

QTEST_MAIN(TestDevicePicture)
#include "tst_devicepicture.moc"
