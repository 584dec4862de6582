#include "OptionChanges.h"
#include "PrinterOptions.h"
#include "TestPpd.h"

#include <QTest>

using namespace Qt::StringLiterals;
using OptionChanges::Values;

/** What is told of options that could not be saved. */
class TestOptionChanges : public QObject
{
    Q_OBJECT
private slots:
    void describe_data();
    void describe();
    void valuesOfTable();
    void valuesOfDriver();
};

void TestOptionChanges::describe_data()
{
    QTest::addColumn<Values>("before");
    QTest::addColumn<Values>("after");
    QTest::addColumn<QStringList>("lines");
    const Values some{{u"cpi"_s, u"10"_s}, {u"sides"_s, u"one-sided"_s}};
    QTest::newRow("nothing") << Values() << Values() << QStringList();
    QTest::newRow("same") << some << some << QStringList();
    QTest::newRow("new") << Values() << some << QStringList{u"cpi = 10"_s, u"sides = one-sided"_s};
    QTest::newRow("new and empty")
        << Values() << Values{{u"prettyprint"_s, QString()}} << QStringList{u"prettyprint = "_s};
    QTest::newRow("other value") << some
                                 << Values{{u"cpi"_s, u"12"_s}, {u"sides"_s, u"one-sided"_s}}
                                 << QStringList{u"cpi = 12"_s};
    QTest::newRow("removed") << some << Values{{u"cpi"_s, u"10"_s}}
                             << QStringList{u"sides (removed)"_s};
}

void TestOptionChanges::describe()
{
    QFETCH(Values, before);
    QFETCH(Values, after);
    QTEST(OptionChanges::describe(before, after), "lines");
}

void TestOptionChanges::valuesOfTable()
{
    PrinterOptions options;
    options.setOption(u"cpi"_s, u"12"_s);
    options.setOption(u"lpi"_s, u"8"_s);
    options.removeOption(u"lpi"_s);
    QCOMPARE(OptionChanges::values(options), Values({{u"cpi"_s, u"12"_s}}));
}

void TestOptionChanges::valuesOfDriver()
{
    PrinterOptions options;
    options.setOption(u"cpi"_s, u"12"_s);
    options.usePPD(
        TestPpd::open(TestPpd::group("Main", TestPpd::pickOne("Tray", "One", {"One", "Two"}))));
    QVERIFY(options.ppd());
    QCOMPARE(OptionChanges::values(options), Values({{u"Tray"_s, u"One"_s}, {u"cpi"_s, u"12"_s}}));
    ppdMarkOption(options.ppd(), "Tray", "Two");
    QCOMPARE(OptionChanges::values(options).value(u"Tray"_s), u"Two"_s);
}

QTEST_GUILESS_MAIN(TestOptionChanges)
#include "tst_optionchanges.moc"
