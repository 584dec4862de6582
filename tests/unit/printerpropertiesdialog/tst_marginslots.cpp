#include "MarginSlots.h"
#include "PaperSizes.h"

#include <QTest>

namespace
{
/** Slots 0 to 3 hold 100 to 103. */
MarginSlots numberedSlots()
{
    MarginSlots margins;
    margins.take({100, 101, 102, 103}, {});
    return margins;
}

QList<int> listed(const PageMargins &margins)
{
    return {margins.left, margins.right, margins.top, margins.bottom};
}

QList<int> listed(const MarginSlots &margins)
{
    return {margins.slot(0), margins.slot(1), margins.slot(2), margins.slot(3)};
}

void addOrientations()
{
    QTest::addColumn<bool>("landscape");
    QTest::addColumn<bool>("reversed");
    QTest::addColumn<QList<int>>("slotOfSide");

    // The slots that show left, right, top and bottom.
    QTest::newRow("portrait") << false << false << QList<int>{0, 1, 2, 3};
    QTest::newRow("portrait, reversed") << false << true << QList<int>{1, 0, 3, 2};
    QTest::newRow("landscape") << true << false << QList<int>{3, 2, 0, 1};
    QTest::newRow("landscape, reversed") << true << true << QList<int>{2, 3, 1, 0};
}
} // namespace

class TestMarginSlots : public QObject
{
    Q_OBJECT

private slots:
    void startsWithDefaults()
    {
        QCOMPARE(listed(MarginSlots()), QList<int>({12, 12, 12, 12}));
        QCOMPARE(MarginSlots::deviceDefault, 12);
        QCOMPARE(MarginSlots::minimum, 13);
    }

    void resets()
    {
        MarginSlots margins = numberedSlots();
        QVERIFY(margins != MarginSlots());
        margins.resetToDefaults();
        QVERIFY(margins == MarginSlots());
    }

    void showsSlots_data() { addOrientations(); }

    void showsSlots()
    {
        QFETCH(bool, landscape);
        QFETCH(bool, reversed);
        QFETCH(QList<int>, slotOfSide);

        const QList<int> sides = listed(numberedSlots().shown({landscape, reversed}));
        QCOMPARE(sides.size(), slotOfSide.size());
        for (qsizetype side = 0; side < sides.size(); ++side)
            QCOMPARE(sides[side], 100 + slotOfSide[side]);
    }

    void takesSides_data() { addOrientations(); }

    void takesSides()
    {
        QFETCH(bool, landscape);
        QFETCH(bool, reversed);
        QFETCH(QList<int>, slotOfSide);

        const PageMargins sides{20, 21, 22, 23};
        MarginSlots margins;
        margins.take(sides, {landscape, reversed});
        for (qsizetype side = 0; side < slotOfSide.size(); ++side)
            QCOMPARE(listed(margins)[slotOfSide[side]], 20 + side);
        QVERIFY(margins.shown({landscape, reversed}) == sides);
    }

    /** The edge at the paper's top stays the same edge, whichever way the page is turned. */
    void keepsMarginsOnPaper_data() { addOrientations(); }

    void keepsMarginsOnPaper()
    {
        QFETCH(bool, landscape);
        QFETCH(bool, reversed);

        MarginSlots margins = numberedSlots();
        margins.take(margins.shown({landscape, reversed}), {landscape, reversed});
        QVERIFY(margins == numberedSlots());
    }

    void sharesNineTenths_data()
    {
        QTest::addColumn<int>("length");
        QTest::addColumn<int>("total");

        QTest::newRow("A4 in landscape, left and right") << 842 << 757;
        QTest::newRow("A4 in landscape, top and bottom") << 595 << 535;
        QTest::newRow("Letter, left and right") << 612 << 550;
        QTest::newRow("Letter, top and bottom") << 792 << 712;
        QTest::newRow("exact") << 540 << 486;
        QTest::newRow("just below an integer") << 709 << 638;
    }

    void sharesNineTenths()
    {
        QFETCH(int, length);
        QFETCH(int, total);

        QCOMPARE(MarginSlots::sharedTotal(length), total);
    }

    void followsPaperAndOrientation()
    {
        const PageOrientation landscape{true, false};
        const QSize page = PaperSizes::visible(PaperSizes::inPoints(u"A4"), landscape);
        QCOMPARE(MarginSlots::sharedTotal(page.width()), 757);
        QCOMPARE(MarginSlots::sharedTotal(page.height()), 535);
    }

    /** The integers come out as those of a multiplication by 0.9 do. */
    void agreesWithFloatingPoint()
    {
        for (int length = 0; length <= 20000; ++length)
            QCOMPARE(MarginSlots::sharedTotal(length), static_cast<int>(length * 0.9));
    }
};

QTEST_APPLESS_MAIN(TestMarginSlots)
#include "tst_marginslots.moc"
