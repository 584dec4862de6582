#include "CUPSManager.h"
#include "Destinations.h"
#include "IppTool.h"
#include "PrintCommands.h"
#include "PrinterOptions.h"

#include <QProcess>
#include <QTest>

/**
 * Names that are not ASCII on a real server: a queue, a saved instance, a class of such a queue.
 * What was done is read back with the system's own commands.
 */

namespace
{
const QString queue = QStringLiteral("B\u00fcro");
const QString instance = QStringLiteral("entw\u00fcrfe");
const QString className = QStringLiteral("\u00c4mter");
const QString location = QStringLiteral("Geb\u00e4ude 3");
const QString description = QStringLiteral("Gro\u00dfer Drucker");

void run(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit ||
        process.exitCode() != 0)
        qFatal("%s failed: %s", qPrintable(program), process.readAllStandardError().constData());
}

void runLpadmin(const QString &arguments)
{
    run(QStringLiteral("lpadmin"),
        QStringList{QStringLiteral("-U"), QStringLiteral("root")} + arguments.split(u'|'));
}

/** What the server says of the printer or class at `uri`. */
QString told(const QString &uri, const char *attribute)
{
    return IppTool::printer(uri).records.constFirst().value(QLatin1String(attribute));
}
} // namespace

class TestCupsWorld : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void lists();
    void findsThePrinter();
    void findsTheClass();
    void asksByUri();
    void loadsSavedOptions();
    void savesOptions();
    void stopsAndStarts();
    void modifiesAndDeletes();
    void printsToIt();
};

void TestCupsWorld::initTestCase()
{
    runLpadmin(QStringLiteral("-p|%1|-E|-v|file:///dev/null|-L|%2|-D|%3")
                   .arg(queue, location, description));
    runLpadmin(QStringLiteral("-p|%1|-c|%2").arg(queue, className));
    run(QStringLiteral("lpoptions"), {QStringLiteral("-p"), queue + u'/' + instance,
                                      QStringLiteral("-o"), QStringLiteral("note=gr\u00fcn")});
}

void TestCupsWorld::lists()
{
    const auto entries = Destinations::listWithoutDiscovery();
    QVERIFY(entries.contains({queue, QString(), false}));
    QVERIFY(entries.contains({queue, instance, false}));
    QVERIFY(entries.contains({className, QString(), false}));
}

void TestCupsWorld::findsThePrinter()
{
    CUPSPrinter printer;
    QVERIFY(_CUPS->findPrinter(queue, printer, false));
    QCOMPARE(printer.attributes.name, queue);
    QCOMPARE(printer.attributes.location, location);
    QCOMPARE(printer.attributes.description, description);
}

void TestCupsWorld::findsTheClass()
{
    ClassInfo cls;
    QVERIFY(_CUPS->findClass(className, cls));
    QCOMPARE(cls.memberNames, QStringList{queue});
}

void TestCupsWorld::asksByUri()
{
    CUPSPrinter found;
    QVERIFY(_CUPS->findPrinter(queue, found, false));
    CUPSPrinter again;
    QVERIFY(_CUPS->getPrinterAttributes(found.attributes.uri.toUtf8().constData(), again));
    QCOMPARE(again.attributes.name, queue);
}

void TestCupsWorld::loadsSavedOptions()
{
    PrinterOptions options;
    QVERIFY(options.load(queue + u'/' + instance));
    QCOMPARE(options.value(QStringLiteral("note"), QString()), QStringLiteral("gr\u00fcn"));
}

void TestCupsWorld::savesOptions()
{
    PrinterOptions options;
    options.setOption(QStringLiteral("note"), QStringLiteral("gr\u00f6\u00dfer"));
    QVERIFY(options.save(queue));
    PrinterOptions again;
    QVERIFY(again.load(queue));
    QCOMPARE(again.value(QStringLiteral("note"), QString()), QStringLiteral("gr\u00f6\u00dfer"));
    QVERIFY(PrintCommands::run(QStringLiteral("lpoptions"), {QStringLiteral("-p"), queue})
                .contains(QStringLiteral("note=gr\u00f6\u00dfer")));
    // And the instance has kept its own.
    loadsSavedOptions();
}

void TestCupsWorld::stopsAndStarts()
{
    CUPSPrinter printer;
    QVERIFY(_CUPS->findPrinter(queue, printer, false));
    const QByteArray uri = printer.attributes.uri.toUtf8();
    QVERIFY(_CUPS->stopPrinter(uri.constData()));
    QVERIFY(_CUPS->findPrinter(queue, printer, false));
    QCOMPARE(printer.attributes.state, int(IPP_PSTATE_STOPPED));
    QCOMPARE(told(printer.attributes.uri, "printer-state"), QStringLiteral("stopped"));
    QCOMPARE(told(printer.attributes.uri, "printer-is-accepting-jobs"), QStringLiteral("false"));
    QVERIFY(_CUPS->startPrinter(uri.constData()));
    QVERIFY(_CUPS->findPrinter(queue, printer, false));
    QCOMPARE(printer.attributes.state, int(IPP_PSTATE_IDLE));
    QCOMPARE(told(printer.attributes.uri, "printer-state"), QStringLiteral("idle"));
    QCOMPARE(told(printer.attributes.uri, "printer-is-accepting-jobs"), QStringLiteral("true"));
}

void TestCupsWorld::modifiesAndDeletes()
{
    const QString other = QStringLiteral("Stra\u00dfe");
    runLpadmin(QStringLiteral("-p|%1|-E|-v|file:///dev/null").arg(other));
    runLpadmin(QStringLiteral("-p|%1|-c|%2").arg(other, className));
    CUPSPrinter printer;
    QVERIFY(_CUPS->findPrinter(other, printer, false));
    printer.attributes.location = QStringLiteral("K\u00fcche");
    QVERIFY(_CUPS->modifyPrinter(printer));
    QCOMPARE(IPPRequest::statusText(_CUPS->lastStatus()), QStringLiteral("OK"));
    CUPSPrinter changed;
    QVERIFY(_CUPS->findPrinter(other, changed, false));
    QCOMPARE(changed.attributes.location, QStringLiteral("K\u00fcche"));
    const QString uri = changed.attributes.uri;
    QCOMPARE(told(uri, "printer-location"), QStringLiteral("K\u00fcche"));

    QVERIFY(_CUPS->deletePrinter(changed.attributes.uri.toUtf8().constData()));
    QVERIFY(!_CUPS->findPrinter(other, changed, false));
    ClassInfo cls;
    QVERIFY(_CUPS->findClass(className, cls));
    QCOMPARE(cls.memberNames, QStringList{queue});
    QCOMPARE(IppTool::printer(uri).status, QStringLiteral("client-error-not-found"));
    QCOMPARE(told(cls.uri, "member-names"), queue);
}

void TestCupsWorld::printsToIt()
{
    CUPSPrinter printer;
    QVERIFY(_CUPS->findPrinter(queue, printer, false));
    PrintJob job;
    job.title = QStringLiteral("Gr\u00fc\u00dfe");
    job.format = QStringLiteral("text/plain");
    job.file = QCoreApplication::applicationDirPath() + QStringLiteral("/CTestTestfile.cmake");
    QVERIFY(_CUPS->printFile(printer, job));
    QMap<int, JobInfo> jobs;
    const auto isThere = [&jobs] {
        jobs.clear();
        _CUPS->getJobs(jobs, queue.toUtf8().constData(), false);
        return jobs.size() == 1;
    };
    QTRY_VERIFY(isThere());
    QCOMPARE(jobs.first().name, QStringLiteral("Gr\u00fc\u00dfe"));
    QCOMPARE(jobs.first().printer, queue);
    const IppTool::Record told = IppTool::job(jobs.firstKey());
    QCOMPARE(told.value(QStringLiteral("job-name")), job.title);
    QCOMPARE(told.value(QStringLiteral("job-printer-uri")).section(u'/', -1),
             printer.attributes.uri.section(u'/', -1));
}

QTEST_GUILESS_MAIN(TestCupsWorld)
#include "tst_cups_world.moc"
