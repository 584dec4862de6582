#include "CUPSManager.h"
#include "Destinations.h"
#include "ServerConnection.h"

#include <QElapsedTimer>
#include <QTest>

/** A server whose name no name server tells (see run). The limits are shortened to a twentieth. */

class TestServerNames : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void unknownName_data();
    void unknownName();
    void unknownNameUnderOnePatience();

private:
    /** Far less than the name servers' own time, and far more than the shortened limit. */
    static constexpr qint64 EnoughMs = 4'000;
};

void TestServerNames::initTestCase()
{
    ServerConnection::limits().totalMs /= 20;
    QCOMPARE(cupsServer(), "printserver.example");
}

namespace
{
using Call = void (*)();

void find()
{
    CUPSPrinter found;
    QVERIFY(!_CUPS->findPrinter(QStringLiteral("Laser"), found, false));
    QCOMPARE(_CUPS->listingStatus(), CUPSManager::NoAnswer);
}

void list()
{
    QVERIFY(Destinations::listWithoutDiscovery().isEmpty());
}

void name()
{
    QCOMPARE(Destinations::named("Laser", nullptr).count(), 0);
}
} // namespace

void TestServerNames::unknownName_data()
{
    QTest::addColumn<Call>("call");
    QTest::newRow("find") << Call(find);
    QTest::newRow("list") << Call(list);
    QTest::newRow("name") << Call(name);
}

void TestServerNames::unknownName()
{
    QFETCH(Call, call);
    QElapsedTimer timer;
    timer.start();
    call();
    QVERIFY2(timer.elapsed() < EnoughMs, qPrintable(QString::number(timer.elapsed())));
    // The name servers were asked.
    QVERIFY(timer.elapsed() >= ServerConnection::limits().totalMs);
}

void TestServerNames::unknownNameUnderOnePatience()
{
    const ServerConnection::Patience patience;
    QElapsedTimer timer;
    timer.start();
    for (const Call call : {find, list, name, find, list, name})
        call();
    QVERIFY2(timer.elapsed() < EnoughMs, qPrintable(QString::number(timer.elapsed())));
}

QTEST_GUILESS_MAIN(TestServerNames)
#include "tst_server_names.moc"
