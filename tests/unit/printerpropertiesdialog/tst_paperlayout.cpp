#include "PaperLayout.h"

#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

/** Options of the General tab and the choices that they stand for. */
class TestPaperLayout : public QObject
{
    Q_OBJECT
private slots:
    void orientations_data();
    void orientations();
    void orientationsThatAreRead_data();
    void orientationsThatAreRead();
    void duplex_data();
    void duplex();
    void duplexOfOtherValues_data();
    void duplexOfOtherValues();
    void sidesOfNoButton();
    void numbersUp_data();
    void numbersUp();
    void banners();
    void jobSheets_data();
    void jobSheets();
};

void TestPaperLayout::orientations_data()
{
    QTest::addColumn<int>("requested");
    QTest::addColumn<bool>("landscape");
    QTest::addColumn<bool>("reversed");
    QTest::addColumn<QString>("picture");
    QTest::newRow("portrait") << 3 << false << false << "portrait.png";
    QTest::newRow("landscape") << 4 << true << false << "landscape.png";
    QTest::newRow("landscape, reversed") << 5 << true << true << "landscape_rev.png";
    QTest::newRow("portrait, reversed") << 6 << false << true << "portrait_rev.png";
}

void TestPaperLayout::orientations()
{
    QFETCH(int, requested);
    QFETCH(bool, landscape);
    QFETCH(bool, reversed);
    const PageOrientation orientation{.landscape = landscape, .reversed = reversed};
    QCOMPARE(PaperLayout::orientation(requested, false), orientation);
    QCOMPARE(PaperLayout::orientationRequested(orientation), requested);
    QTEST(PaperLayout::orientationPicture(orientation), "picture");
}

void TestPaperLayout::orientationsThatAreRead_data()
{
    QTest::addColumn<int>("requested");
    QTest::addColumn<bool>("hasLandscape");
    QTest::addColumn<bool>("landscape");
    QTest::addColumn<bool>("reversed");
    QTest::newRow("none") << 0 << false << false << false;
    QTest::newRow("below") << 2 << false << false << false;
    QTest::newRow("above") << 7 << false << false << false;
    QTest::newRow("landscape alone") << 0 << true << true << false;
    QTest::newRow("landscape beats portrait") << 3 << true << true << false;
    QTest::newRow("landscape and reversed portrait") << 6 << true << true << true;
}

void TestPaperLayout::orientationsThatAreRead()
{
    QFETCH(int, requested);
    QFETCH(bool, hasLandscape);
    const PageOrientation read = PaperLayout::orientation(requested, hasLandscape);
    QTEST(read.landscape, "landscape");
    QTEST(read.reversed, "reversed");
}

void TestPaperLayout::duplex_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("driverValue");
    QTest::addColumn<QString>("sides");
    QTest::addColumn<QString>("picture");
    QTest::newRow("off") << 0 << "None"
                         << "one-sided"
                         << "dupl_none.png";
    QTest::newRow("long edge") << 1 << "DuplexNoTumble"
                               << "two-sided-long-edge"
                               << "dupl_long.png";
    QTest::newRow("short edge") << 2 << "DuplexTumble"
                                << "two-sided-short-edge"
                                << "dupl_short.png";
}

void TestPaperLayout::duplex()
{
    QFETCH(int, id);
    QFETCH(QString, driverValue);
    QFETCH(QString, sides);
    QCOMPARE(int(PaperLayout::duplexOfDriver(driverValue).value()), id);
    QCOMPARE(int(PaperLayout::duplexOfSides(sides)), id);
    QCOMPARE(QString(PaperLayout::sides(id)), sides);
    QTEST(PaperLayout::duplexPicture(id), "picture");
}

void TestPaperLayout::duplexOfOtherValues_data()
{
    QTest::addColumn<QString>("value");
    QTest::newRow("null") << QString();
    QTest::newRow("other case") << "duplexnotumble";
    QTest::newRow("unknown") << "SimplexTumble";
    QTest::newRow("cut off") << "two-sided";
}

void TestPaperLayout::duplexOfOtherValues()
{
    QFETCH(QString, value);
    QVERIFY(!PaperLayout::duplexOfDriver(value));
    QCOMPARE(PaperLayout::duplexOfSides(value), PaperLayout::DuplexOff);
}

void TestPaperLayout::sidesOfNoButton()
{
    QCOMPARE(QString(PaperLayout::sides(-1)), u"one-sided"_s);
    QCOMPARE(PaperLayout::duplexPicture(-1), u"dupl_none.png"_s);
}

void TestPaperLayout::numbersUp_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("picture");
    for (int number = -1; number <= 17; ++number) {
        const bool isOffered = number == 1 || number == 2 || number == 4;
        QTest::addRow("%d", number)
            << number << (isOffered ? u"nup%1.png"_s.arg(number) : QString());
    }
}

void TestPaperLayout::numbersUp()
{
    QFETCH(int, number);
    QFETCH(QString, picture);
    QCOMPARE(PaperLayout::isNumberUp(number), !picture.isNull());
    if (!picture.isNull())
        QCOMPARE(PaperLayout::numberUpPicture(number), picture);
}

void TestPaperLayout::banners()
{
    QCOMPARE(PaperLayout::banners(),
             QStringList({u"none"_s, u"classified"_s, u"confidential"_s, u"secret"_s, u"standard"_s,
                          u"topsecret"_s, u"unclassified"_s}));
}

void TestPaperLayout::jobSheets_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("end");
    QTest::newRow("both") << "secret,standard"
                          << "secret"
                          << "standard";
    QTest::newRow("start only") << "classified"
                                << "classified" << QString();
    QTest::newRow("more than two") << "none,secret,standard"
                                   << "none"
                                   << "secret";
    QTest::newRow("no end") << "secret,"
                            << "secret"
                            << "";
    QTest::newRow("no start") << ",secret"
                              << ""
                              << "secret";
}

void TestPaperLayout::jobSheets()
{
    QFETCH(QString, value);
    QFETCH(QString, end);
    const auto sheets = PaperLayout::JobSheets::fromOption(value);
    QTEST(sheets.start, "start");
    QCOMPARE(sheets.end, end);
    QCOMPARE(sheets.end.isNull(), end.isNull());
    const PaperLayout::JobSheets both{u"none"_s, u"secret"_s};
    QCOMPARE(both.toOption(), u"none,secret"_s);
}

QTEST_GUILESS_MAIN(TestPaperLayout)
#include "tst_paperlayout.moc"
