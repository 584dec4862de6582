#include "Looks.h"
#include "PPDTreeColors.h"

#include <QApplication>
#include <QPalette>
#include <QStyle>
#include <QStyleFactory>
#include <QTest>

#include <memory>

using namespace PPDTreeColors;

class TestPPDTreeColors : public QObject
{
    Q_OBJECT
private slots:
    void contrastOfColors_data();
    void contrastOfColors();
    void readable_data();
    void readable();
    void meaning_data() { readable_data(); }
    void meaning();
    void familiarWhereReadable();
    void textIsThePalettes();
    void selectionOfEveryHighlight_data();
    void selectionOfEveryHighlight();
};

namespace
{
QPalette withColor(QPalette palette, QPalette::ColorRole role, const QColor &color)
{
    palette.setColor(role, color);
    return palette;
}

QPalette fusion()
{
    const std::unique_ptr<QStyle> style(QStyleFactory::create(QStringLiteral("Fusion")));
    return style->standardPalette();
}
} // namespace

void TestPPDTreeColors::contrastOfColors_data()
{
    QTest::addColumn<QColor>("one");
    QTest::addColumn<QColor>("other");
    QTest::addColumn<double>("expected");
    QTest::newRow("black and white") << QColor(Qt::black) << QColor(Qt::white) << 21.0;
    QTest::newRow("white and black") << QColor(Qt::white) << QColor(Qt::black) << 21.0;
    QTest::newRow("the same") << QColor(12, 34, 56) << QColor(12, 34, 56) << 1.0;
    QTest::newRow("red on white") << QColor(Qt::red) << QColor(Qt::white) << 4.0;
    QTest::newRow("grey on white") << QColor(0x76, 0x76, 0x76) << QColor(Qt::white) << 4.54;
}

void TestPPDTreeColors::contrastOfColors()
{
    QFETCH(QColor, one);
    QFETCH(QColor, other);
    QFETCH(double, expected);
    QVERIFY(std::abs(contrast(one, other) - expected) < 0.005);
}

void TestPPDTreeColors::readable_data()
{
    QTest::addColumn<QPalette>("palette");
    QTest::newRow("light") << fusion();
    QTest::newRow("dark") << Looks::darkPalette();
    QTest::newRow("black") << withColor(fusion(), QPalette::Base, Qt::black);
    QTest::newRow("yellowish") << withColor(fusion(), QPalette::Base, QColor(0xff, 0xfb, 0xe6));
    QTest::newRow("blueish dark") << withColor(fusion(), QPalette::Base, QColor(0x23, 0x2a, 0x3d));
}

void TestPPDTreeColors::readable()
{
    QFETCH(QPalette, palette);
    const QColor base = palette.color(QPalette::Base);
    QVERIFY(contrast(textColor(palette, Role::Conflict), base) >= ReadableContrast);
    QVERIFY(contrast(textColor(palette, Role::Choice), base) >= ReadableContrast);
    QVERIFY(contrast(textColor(palette, Role::Selected), selectionColor(palette)) >=
            ReadableContrast);
}

void TestPPDTreeColors::meaning()
{
    QFETCH(QPalette, palette);
    QCOMPARE(textColor(palette, Role::Conflict).hslHue(), QColor(Qt::red).hslHue());
    QCOMPARE(textColor(palette, Role::Choice).hslHue(), QColor(Qt::green).hslHue());
    QCOMPARE(textColor(palette, Role::Selected), QColor(Qt::white));
}

void TestPPDTreeColors::familiarWhereReadable()
{
    QCOMPARE(textColor(fusion(), Role::Choice), QColor(Qt::darkGreen));
    QCOMPARE(textColor(withColor(fusion(), QPalette::Base, Qt::black), Role::Conflict),
             QColor(Qt::red));
    const QPalette navy = withColor(fusion(), QPalette::Highlight, QColor(0, 0, 0x80));
    QCOMPARE(selectionColor(navy), QColor(0, 0, 0x80));
}

void TestPPDTreeColors::textIsThePalettes()
{
    const QPalette palette = withColor(fusion(), QPalette::Text, QColor(1, 2, 3));
    QCOMPARE(textColor(palette, Role::Text), QColor(1, 2, 3));
}

void TestPPDTreeColors::selectionOfEveryHighlight_data()
{
    QTest::addColumn<QColor>("highlight");
    for (const char *name : {"#308cc6", "#2a82da", "#ffffff", "#000000", "#ffff00", "#00ff00",
                             "#efefef", "#919191", "#3daee9"})
        QTest::newRow(name) << QColor(QLatin1StringView(name));
}

void TestPPDTreeColors::selectionOfEveryHighlight()
{
    QFETCH(QColor, highlight);
    const QPalette palette = withColor(fusion(), QPalette::Highlight, highlight);
    QVERIFY(contrast(Qt::white, selectionColor(palette)) >= ReadableContrast);
}

QTEST_MAIN(TestPPDTreeColors)
#include "tst_ppdtreecolors.moc"
