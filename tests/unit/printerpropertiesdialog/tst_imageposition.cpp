#include "ImagePosition.h"

#include <QTest>

namespace
{
void addPosition(int horizontal, int vertical, const char *text)
{
    QTest::addRow("%d, %d", horizontal, vertical)
        << horizontal << vertical << QString::fromLatin1(text);
}

void addPositions()
{
    QTest::addColumn<int>("horizontal");
    QTest::addColumn<int>("vertical");
    QTest::addColumn<QString>("text");

    addPosition(0, 0, "top-left");
    addPosition(1, 0, "top");
    addPosition(2, 0, "top-right");
    addPosition(0, 1, "left");
    addPosition(1, 1, "");
    addPosition(2, 1, "right");
    addPosition(0, 2, "bottom-left");
    addPosition(1, 2, "bottom");
    addPosition(2, 2, "bottom-right");
}
} // namespace

class TestImagePosition : public QObject
{
    Q_OBJECT

private slots:
    void writes_data() { addPositions(); }

    void writes()
    {
        QFETCH(int, horizontal);
        QFETCH(int, vertical);
        QFETCH(QString, text);

        QCOMPARE(ImagePosition::fromSliders(horizontal, vertical).toOption(), text);
    }

    void reads_data()
    {
        addPositions();

        QTest::newRow("null") << 1 << 1 << QString();
        QTest::newRow("centre") << 1 << 1 << QStringLiteral("center");
        QTest::newRow("other order") << 2 << 2 << QStringLiteral("right-bottom");
        QTest::newRow("within words") << 0 << 0 << QStringLiteral("xleftxtopx");
        QTest::newRow("both sides") << 0 << 1 << QStringLiteral("right left");
        QTest::newRow("both ends") << 1 << 0 << QStringLiteral("bottom top");
        QTest::newRow("upper case") << 1 << 1 << QStringLiteral("TOP-LEFT");
        QTest::newRow("capitals") << 1 << 1 << QStringLiteral("Bottom-Right");
        QTest::newRow("one in capitals") << 1 << 0 << QStringLiteral("top-Left");
        QTest::newRow("cut short") << 1 << 1 << QStringLiteral("botto-righ");
        QTest::newRow("number") << 1 << 1 << QStringLiteral("2");
    }

    void reads()
    {
        QFETCH(int, horizontal);
        QFETCH(int, vertical);
        QFETCH(QString, text);

        const ImagePosition position = ImagePosition::fromOption(text);
        QCOMPARE(static_cast<int>(position.horizontal), horizontal);
        QCOMPARE(static_cast<int>(position.vertical), vertical);
    }

    void takesOtherValuesForCentre()
    {
        QVERIFY(ImagePosition::fromSliders(-1, 3) == ImagePosition());
        QVERIFY(ImagePosition::fromOption(QString()) == ImagePosition());
    }

    void placesImage_data()
    {
        QTest::addColumn<QSize>("page");
        QTest::addColumn<QSize>("image");
        QTest::addColumn<int>("horizontal");
        QTest::addColumn<int>("vertical");
        QTest::addColumn<QPoint>("offset");

        const QSize page(85, 110);
        const QSize image(30, 41);
        for (int horizontal = 0; horizontal < 3; ++horizontal) {
            for (int vertical = 0; vertical < 3; ++vertical) {
                const int x[] = {0, 27, 55};
                const int y[] = {0, 34, 69};
                QTest::addRow("%d, %d", horizontal, vertical)
                    << page << image << horizontal << vertical
                    << QPoint(x[horizontal], y[vertical]);
            }
        }
        QTest::newRow("as large as the page") << page << page << 2 << 1 << QPoint(0, 0);
        QTest::newRow("larger than the page") << image << page << 1 << 2 << QPoint(-27, -69);
        QTest::newRow("nothing") << QSize(0, 0) << QSize(0, 0) << 2 << 2 << QPoint(0, 0);
    }

    void placesImage()
    {
        QFETCH(QSize, page);
        QFETCH(QSize, image);
        QFETCH(int, horizontal);
        QFETCH(int, vertical);
        QFETCH(QPoint, offset);

        const ImagePosition position = ImagePosition::fromSliders(horizontal, vertical);
        QCOMPARE(position.offset(page, image), offset);
    }
};

QTEST_APPLESS_MAIN(TestImagePosition)
#include "tst_imageposition.moc"
