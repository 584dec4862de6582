#include "LengthUnits.h"

#include <QTest>

#include <cmath>

namespace
{
const char *const units[] = {"points", "1/10 inches", "mm"};

/** A length as it shows in the unit, read back to the nearest point. */
int shownAndRead(int points, const LengthUnit &unit)
{
    const double value = static_cast<double>(points) * unit.units / unit.points;
    const double shown = QString::number(value, 'f', unit.decimals).toDouble();
    return static_cast<int>(std::floor(shown * unit.points / unit.units + 0.5));
}
} // namespace

class TestLengthUnits : public QObject
{
    Q_OBJECT

private slots:
    void listsUnits_data()
    {
        QTest::addColumn<int>("entry");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QList<int>>("conversion");

        QTest::newRow("points") << 0 << QStringLiteral("points") << QList<int>{1, 1, 0};
        QTest::newRow("inches") << 1 << QStringLiteral("1/10 inches") << QList<int>{72, 10, 1};
        QTest::newRow("mm") << 2 << QStringLiteral("mm") << QList<int>{720, 254, 1};
        QTest::newRow("none") << -1 << QStringLiteral("points") << QList<int>{1, 1, 0};
        QTest::newRow("behind the last") << 3 << QStringLiteral("points") << QList<int>{1, 1, 0};
    }

    void listsUnits()
    {
        QFETCH(int, entry);
        QFETCH(QString, name);
        QFETCH(QList<int>, conversion);

        const LengthUnit &unit = LengthUnits::at(entry);
        QCOMPARE(QLatin1String(unit.name), name);
        QCOMPARE(QList<int>({unit.points, unit.units, unit.decimals}), conversion);
    }

    void keepsOrder()
    {
        QCOMPARE(LengthUnits::all.size(), std::size(units));
        for (std::size_t entry = 0; entry < std::size(units); ++entry)
            QCOMPARE(LengthUnits::all[entry].name, units[entry]);
    }

    void isExact()
    {
        const double inch = 72;
        QCOMPARE(inch * LengthUnits::at(1).units / LengthUnits::at(1).points, 10.0);
        QCOMPARE(inch * LengthUnits::at(2).units / LengthUnits::at(2).points, 25.4);
    }

    /** The decimals are enough to tell any two lengths from each other. */
    void keepsEveryPoint_data()
    {
        QTest::addColumn<int>("entry");
        for (int entry = 0; entry < 3; ++entry)
            QTest::newRow(LengthUnits::at(entry).name) << entry;
    }

    void keepsEveryPoint()
    {
        QFETCH(int, entry);

        for (int points = 0; points <= 1008; ++points)
            QCOMPARE(shownAndRead(points, LengthUnits::at(entry)), points);
    }
};

QTEST_APPLESS_MAIN(TestLengthUnits)
#include "tst_lengthunits.moc"
