#include "DestinationState.h"

#include <QTest>

#include <climits>

class TestDestinationState : public QObject
{
    Q_OBJECT
private slots:
    void notFound();
    void takesWhatTheServerSays();
    void classHasNoModel();
    void needsStart_data();
    void needsStart();
    void copies_data();
    void copies();
};

void TestDestinationState::notFound()
{
    const DestinationState state;
    QVERIFY(!state.found);
    QCOMPARE(state.state, 5);
    QVERIFY(!state.accepting);
    QVERIFY(!state.needsStart());
    QCOMPARE(state.copiesMin, 1);
    QCOMPARE(state.copiesMax, 100);
    QCOMPARE(state.location + state.description + state.makeAndModel + state.uri, QString());
}

void TestDestinationState::takesWhatTheServerSays()
{
    PrinterInfo printer;
    printer.state = 4;
    printer.acceptingJobs = true;
    printer.location = QStringLiteral("here");
    printer.description = QStringLiteral("a printer");
    printer.modelInfo = QStringLiteral("Make Model");
    printer.uri = QStringLiteral("ipp://localhost/printers/x");
    printer.copiesMin = 2;
    printer.copiesMax = 30;
    const DestinationState state(printer);
    QVERIFY(state.found);
    QCOMPARE(state.state, 4);
    QVERIFY(state.accepting);
    QCOMPARE(state.location, printer.location);
    QCOMPARE(state.description, printer.description);
    QCOMPARE(state.makeAndModel, printer.modelInfo);
    QCOMPARE(state.uri, printer.uri);
    QCOMPARE(state.copiesMin, 2);
    QCOMPARE(state.copiesMax, 30);
}

void TestDestinationState::classHasNoModel()
{
    ClassInfo printerClass;
    printerClass.modelInfo = QStringLiteral("Local Printer Class");
    printerClass.location = QStringLiteral("here");
    QCOMPARE(DestinationState(printerClass).makeAndModel, QString());
    QCOMPARE(DestinationState(printerClass).location, printerClass.location);

    PrinterInfo listed = printerClass;
    listed.printerType = CUPS_PRINTER_CLASS | CUPS_PRINTER_BW;
    QCOMPARE(DestinationState(listed).makeAndModel, QString());
}

void TestDestinationState::needsStart_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<bool>("accepting");
    QTest::addColumn<bool>("expected");
    QTest::newRow("idle") << 3 << true << false;
    QTest::newRow("idle, rejecting") << 3 << false << true;
    QTest::newRow("processing") << 4 << true << false;
    QTest::newRow("processing, rejecting") << 4 << false << true;
    QTest::newRow("stopped") << 5 << true << true;
    QTest::newRow("stopped, rejecting") << 5 << false << true;
}

void TestDestinationState::needsStart()
{
    QFETCH(int, state);
    QFETCH(bool, accepting);
    PrinterInfo printer;
    printer.state = state;
    printer.acceptingJobs = accepting;
    QTEST(DestinationState(printer).needsStart(), "expected");
}

void TestDestinationState::copies_data()
{
    QTest::addColumn<int>("lower");
    QTest::addColumn<int>("upper");
    QTest::addColumn<int>("expectedLower");
    QTest::addColumn<int>("expectedUpper");
    QTest::newRow("a range") << 1 << 9999 << 1 << 9999;
    QTest::newRow("one copy") << 1 << 1 << 1 << 1;
    QTest::newRow("not said") << 0 << 0 << 1 << 100;
    QTest::newRow("nonsense") << -5 << -1 << 1 << 100;
    QTest::newRow("from none") << 0 << 20 << 1 << 20;
    QTest::newRow("negative lower") << -5 << 20 << 1 << 20;
    QTest::newRow("lower above upper") << 30 << 20 << 1 << 20;
    QTest::newRow("both the same") << 5 << 5 << 5 << 5;
    QTest::newRow("largest") << 1 << INT_MAX << 1 << INT_MAX;
    QTest::newRow("negative upper") << 5 << -1 << 1 << 100;
}

void TestDestinationState::copies()
{
    QFETCH(int, lower);
    QFETCH(int, upper);
    PrinterInfo printer;
    printer.copiesMin = lower;
    printer.copiesMax = upper;
    const DestinationState state(printer);
    QTEST(state.copiesMin, "expectedLower");
    QTEST(state.copiesMax, "expectedUpper");
}

QTEST_APPLESS_MAIN(TestDestinationState)
#include "tst_destinationstate.moc"
