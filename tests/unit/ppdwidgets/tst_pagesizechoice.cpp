#include "PageSizeChoice.h"

#include "DecimalCommaLocale.h"

#include <QTest>

/** Reading Custom.WIDTHxHEIGHTunit. */
class TestPageSizeChoice : public QObject
{
    Q_OBJECT
private slots:
    void read_data();
    void read();
    void readWithADecimalComma_data() { read_data(); }
    void readWithADecimalComma();
    void notRead_data();
    void notRead();
};

void TestPageSizeChoice::read_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<float>("width");
    QTest::addColumn<float>("height");
    QTest::addColumn<QByteArray>("unit");
    const auto row = [](const char *text, float width, float height, const char *unit) {
        QTest::newRow(text) << QByteArray(text) << width << height << QByteArray(unit);
    };
    row("Custom.8.5x11in", 8.5F, 11, "in");
    row("Custom.210.000x297.000mm", 210, 297, "mm");
    row("Custom.1x2ft", 1, 2, "ft");
    row("Custom.1x2furlong", 1, 2, "furlong");
    row("Custom.1x2 mm", 1, 2, "mm");
    row("Custom. 1x\t2\nmm rest", 1, 2, "mm");
    row("Custom.+1x-2pt", 1, -2, "pt");
    row("Custom.1e2x2.5E+1pt", 100, 25, "pt");
    row("Custom..5x1.pt", 0.5F, 1, "pt");
    row("Custom.0.1x16777217pt", 0.1F, 16777216, "pt");
}

void TestPageSizeChoice::read()
{
    QFETCH(QByteArray, text);
    const auto choice = PageSizeChoice::parse(text.toStdString());
    QVERIFY(choice);
    QTEST(choice->width, "width");
    QTEST(choice->height, "height");
    QTEST(choice->unit, "unit");
}

void TestPageSizeChoice::readWithADecimalComma()
{
    const DecimalCommaLocale locale;
    QVERIFY2(locale.isActive(), locale.error());
    read();
}

void TestPageSizeChoice::notRead_data()
{
    QTest::addColumn<QByteArray>("text");
    for (const char *text :
         {"", "A4", "Custom", "Custom.", "Custom.1", "Custom.1x", "Custom.1x2", "Custom.1x2 ",
          "Custom.1 x2mm", "Custom.1X2mm", "custom.1x2mm", "Custom.8,5x11in", "Custom.axbmm",
          "Custom.+-1x2mm", "Custom.nanx2mm", "Custom.1xinfmm", "Custom.1e99x2mm", " Custom.1x2mm"})
        QTest::newRow(text) << QByteArray(text);
}

void TestPageSizeChoice::notRead()
{
    QFETCH(QByteArray, text);
    QVERIFY(!PageSizeChoice::parse(text.toStdString()));
}

QTEST_APPLESS_MAIN(TestPageSizeChoice)
#include "tst_pagesizechoice.moc"
